#include "shell/ChartData.h"

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/StatisticsStore.h"
#include "shell/Strings.h"

bool chartStoreAllowed(const StatisticsStore& store) {
  if (store.nx >= 1 || store.ny >= 1) return true;
  program().MessageSound = 1;
  PlayMessageSound();
  MBoxShow(3, Res(3412) + QStringLiteral("\n\n") + Res(3413), 3, 0, 0, Res(3423));
  return false;
}

ChartData chartDataOfStore(const StatisticsStore& store, int regType) {
  ChartData d;
  d.x.assign(store.X.begin() + 1, store.X.begin() + 1 + store.nx);
  d.y.assign(store.Y.begin() + 1, store.Y.begin() + 1 + store.ny);
  d.regressionType = regType;
  d.series = store.nx == store.ny && store.nx >= 2 ? 0 : store.nx > 0 ? 1 : 2;
  return d;
}
