#include "shell/ChartWindowRequest.h"

#include <QPointer>

#include "shell/WindowRegistry.h"

namespace {

struct Receiver {
  QPointer<QObject> owner;
  std::function<void(const ChartData&)> take;
};

Receiver& receiver() {
  static Receiver r;
  return r;
}

}  // namespace

void setChartReceiver(QObject* owner, std::function<void(const ChartData&)> take) {
  receiver() = {owner, std::move(take)};
}

void showChart(const ChartData& data) {
  if (!OpenWindow(WindowId::StatisticsChart)) return;
  const Receiver& r = receiver();
  if (r.owner && r.take) r.take(data);
}
