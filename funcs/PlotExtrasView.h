#pragma once
// What the plot window offers beyond the drawing's own menus: the colour
// editor, the title dialog, the annotations and the table's CSV import and
// export. It adds its menu "Personalizar" and two items to the file menu,
// and watches the picture's mouse for the annotations: "Nueva Anotación"
// asks for the text, the next click places it (Esc cancels); an annotation
// is moved by dragging it and edited or deleted from its context menu.
// Everything goes through PlotAppearance, which keeps it for the next run.
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRectF>
#include <QStringList>
#include <functional>
#include <memory>

class FunctionTable;
class PlotAppearance;
class PlotModel;
class PlotPictureView;
class QMainWindow;
class QMenu;

class PlotExtrasView : public QObject {
  Q_OBJECT

 public:
  // redraw is the window's redraw entry (model and overlays).
  PlotExtrasView(QMainWindow* window, PlotModel& model, PlotPictureView* picture, std::function<void()> redraw);
  ~PlotExtrasView() override;

  PlotAppearance& appearance() { return *appearance_; }
  // The annotation under a point of the picture, or -1.
  int annotationAt(QPointF picture) const;
  QRectF annotationRect(int index) const;

  // Menu entries (also for tests and the screenshot tour).
  void editColours();
  void editTitles();
  // Starts placing a new annotation with this text at the next click.
  void placeAnnotation(const QString& text);
  bool isPlacing() const { return !pending_.isEmpty(); }
  void importCsv();
  void exportCsv();

  // For the screenshot tour: "annotated", "colours" and "csv" (the dialog left open), "help".
  static QStringList screenshotStates();
  void showScreenshotState(const QString& state);

  // Asks for a text (the message box's input line); a null text when cancelled.
  std::function<QString(const QString& prompt, const QString& initial)> askText;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildMenus();
  void contextMenu(int index, const QPoint& global);
  void tableChanged();

  QMainWindow* window_;
  PlotModel& model_;
  PlotPictureView* picture_;
  std::function<void()> redraw_;
  std::unique_ptr<PlotAppearance> appearance_;
  QPointer<QWidget> shownDialog_;
  QString pending_;   // text waiting for its click
  int dragging_ = -1;
  QPointF grabOffset_;
  bool dragged_ = false;
};
