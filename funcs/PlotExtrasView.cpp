#include "funcs/PlotExtrasView.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTemporaryDir>

#include "funcs/FunctionTable.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotAppearance.h"
#include "funcs/PlotColoursDialog.h"
#include "funcs/PlotModel.h"
#include "funcs/PlotPictureView.h"
#include "funcs/PlotTitleDialog.h"
#include "funcs/TableCsvDialog.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowHelp.h"
#include "shell/WindowRegistry.h"

namespace {

const QString kTitle = QStringLiteral("Calvix  -  VelozPlot");

// The font the drawing prints annotations with (8 points at 96 dpi).
QFont annotationFont() {
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setStyleHint(QFont::SansSerif);
  f.setPixelSize(11);
  return f;
}

}  // namespace

PlotExtrasView::PlotExtrasView(QMainWindow* window, PlotModel& model, PlotPictureView* picture,
                               std::function<void()> redraw)
    : QObject(window),
      window_(window),
      model_(model),
      picture_(picture),
      redraw_(std::move(redraw)),
      appearance_(std::make_unique<PlotAppearance>(model)) {
  setObjectName(QStringLiteral("PlotExtras"));
  appearance_->load();
  askText = [](const QString& prompt, const QString& initial) {
    ProgramState& p = program();
    p.MessageDefault = rt::Variant::text(initial);
    MBoxShow(0, prompt, 5, 3, 0, kTitle);
    if (p.MessageResult != 0) return QString();
    const QString answer = p.MessageValue.toText();
    return answer.isNull() ? QStringLiteral("") : answer;
  };
  picture_->installEventFilter(this);
  buildMenus();
}

PlotExtrasView::~PlotExtrasView() = default;

void PlotExtrasView::buildMenus() {
  auto add = [this](QMenu* menu, const char* name, int caption, auto handler) {
    QAction* a = menu->addAction(Res(caption));
    a->setObjectName(QLatin1String(name));
    connect(a, &QAction::triggered, this, handler);
    return a;
  };
  // The CSV items go in the file menu, before its closing items.
  const QList<QAction*> top = window_->menuBar()->actions();
  if (!top.isEmpty() && top.first()->menu()) {
    QMenu* file = top.first()->menu();
    QAction* before = nullptr;
    for (QAction* a : file->actions()) {
      if (a->isSeparator()) before = a;
    }
    QMenu staging;
    QAction* in = add(&staging, "importarCSV", 1867, [this] { importCsv(); });
    QAction* out = add(&staging, "exportarCSV", 1868, [this] { exportCsv(); });
    for (QAction* a : {in, out}) {
      a->setParent(file);
      file->insertAction(before, a);
    }
  }
  QMenu* menu = window_->menuBar()->addMenu(Res(1850));
  menu->setObjectName(QStringLiteral("personalizar"));
  add(menu, "coloresPlot", 1851, [this] { editColours(); });
  add(menu, "titulosPlot", 1852, [this] { editTitles(); });
  menu->addSeparator();
  add(menu, "nuevaAnotacion", 1853, [this] {
    const QString text = askText(Res(1855), QString());
    if (!text.isNull()) placeAnnotation(text);
  });
  add(menu, "borrarAnotaciones", 1858, [this] {
    while (!model_.Label11.empty()) appearance_->deleteAnnotation(static_cast<int>(model_.Label11.size()) - 1);
    redraw_();
  });
}

// ---- Dialogs ------------------------------------------------------------------------------

void PlotExtrasView::editColours() {
  PlotColoursDialog dialog(*appearance_, window_);
  if (dialog.exec() == QDialog::Accepted) redraw_();
}

void PlotExtrasView::editTitles() {
  PlotTitleDialog dialog(model_, *appearance_, window_);
  if (dialog.exec() == QDialog::Accepted) redraw_();
}

void PlotExtrasView::importCsv() {
  if (TableCsvDialog::importInto(model_.table(), window_)) tableChanged();
}

void PlotExtrasView::exportCsv() { TableCsvDialog::exportFrom(model_.table(), window_); }

// New data: the plot loads afresh on it (autoscale), the table window shows it.
void PlotExtrasView::tableChanged() {
  model_.Form_Load();
  redraw_();
  if (auto* tableWindow = qobject_cast<FunctionTableWindow*>(findWindow(WindowId::FunctionTable))) {
    if (&tableWindow->table() == &model_.table()) tableWindow->refresh();
  }
}

// ---- Annotations -----------------------------------------------------------------------------

void PlotExtrasView::placeAnnotation(const QString& text) {
  pending_ = text.trimmed();
  if (pending_.isEmpty()) return;
  model_.Text2 = Res(1854);
  redraw_();
  picture_->setFocus();
}

QRectF PlotExtrasView::annotationRect(int index) const {
  if (index < 0 || index >= static_cast<int>(model_.Label11.size())) return {};
  const QFontMetricsF m(annotationFont());
  const QPointF at = appearance_->annotationPoint(index);
  const QString& text = model_.Label11[static_cast<size_t>(index)].text;
  // Picture units are the widget's pixels on screen.
  return {at, QSizeF(m.horizontalAdvance(text), m.lineSpacing())};
}

int PlotExtrasView::annotationAt(QPointF picture) const {
  // The last drawn is on top.
  for (int i = static_cast<int>(model_.Label11.size()) - 1; i >= 0; --i) {
    if (annotationRect(i).adjusted(-3, -3, 3, 3).contains(picture)) return i;
  }
  return -1;
}

void PlotExtrasView::contextMenu(int index, const QPoint& global) {
  QMenu menu(window_);
  QAction* edit = menu.addAction(Res(1856));
  QAction* remove = menu.addAction(Res(1857));
  QAction* chosen = menu.exec(global);
  if (chosen == edit) {
    const QString text = askText(Res(1855), model_.Label11[static_cast<size_t>(index)].text);
    if (text.isNull()) return;
    appearance_->editAnnotation(index, text);
  } else if (chosen == remove) {
    appearance_->deleteAnnotation(index);
  } else {
    return;
  }
  redraw_();
}

bool PlotExtrasView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != picture_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      if (isPlacing() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        pending_.clear();
        model_.Text2.clear();
        redraw_();
        return true;
      }
      return false;
    case QEvent::MouseButtonPress: {
      auto* e = static_cast<QMouseEvent*>(event);
      if (e->button() != Qt::LeftButton) return false;
      if (isPlacing()) {
        appearance_->addAnnotation(pending_, e->position());
        pending_.clear();
        model_.Text2.clear();
        redraw_();
        return true;
      }
      dragging_ = annotationAt(e->position());
      if (dragging_ < 0) return false;
      grabOffset_ = e->position() - appearance_->annotationPoint(dragging_);
      dragged_ = false;
      picture_->setCursor(Qt::ClosedHandCursor);
      return true;
    }
    case QEvent::MouseMove: {
      if (dragging_ < 0) return false;
      // While dragging only the model moves; the file is written on release.
      auto* e = static_cast<QMouseEvent*>(event);
      const QPointF at = e->position() - grabOffset_;
      PlotModel::Annotation& a = model_.Label11[static_cast<size_t>(dragging_)];
      a.x = model_.ScaleLeft + at.x() * model_.unitX;
      a.y = model_.ScaleTop - at.y() * model_.unitY;
      dragged_ = true;
      picture_->invalidate();
      return true;
    }
    case QEvent::MouseButtonRelease: {
      if (dragging_ < 0) return false;
      auto* e = static_cast<QMouseEvent*>(event);
      if (dragged_) appearance_->moveAnnotation(dragging_, e->position() - grabOffset_);
      dragging_ = -1;
      picture_->setPointer(model_.menuRaton);
      return true;
    }
    case QEvent::ContextMenu: {
      auto* e = static_cast<QContextMenuEvent*>(event);
      const int index = annotationAt(e->pos());
      if (index < 0) return false;
      contextMenu(index, e->globalPos());
      return true;
    }
    default:
      return false;
  }
}

// ---- Screenshot tour ------------------------------------------------------------------------

QStringList PlotExtrasView::screenshotStates() {
  return {QStringLiteral("annotated"), QStringLiteral("colours"), QStringLiteral("csv"), QStringLiteral("help")};
}

void PlotExtrasView::showScreenshotState(const QString& state) {
  if (shownDialog_) shownDialog_->close();
  if (state == QLatin1String("annotated")) {
    appearance_->setTitles({QString(), QStringLiteral("x"), QStringLiteral("y")});
    const QRectF frame(PlotModel::kMarginX, PlotModel::kMarginY, picture_->width() - 2.0 * PlotModel::kMarginX,
                       picture_->height() - 2.0 * PlotModel::kMarginY);
    if (model_.Label11.empty()) {
      appearance_->addAnnotation(Res(1853).remove(QStringLiteral("...")), frame.center() + QPointF(40, -60));
      appearance_->addAnnotation(QStringLiteral("x = 0"), QPointF(frame.left() + 12, frame.bottom() - 30));
    }
    redraw_();
  } else if (state == QLatin1String("colours")) {
    auto* dialog = new PlotColoursDialog(*appearance_, window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    dialog->move(window_->geometry().center() - dialog->rect().center());
    shownDialog_ = dialog;
  } else if (state == QLatin1String("csv")) {
    // A small file of two series, read into the dialog and removed at once.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("serie.csv"));
    QFile file(path);
    if (!dir.isValid() || !file.open(QIODevice::WriteOnly)) return;
    file.write("t;h;v\r\n0;0;12,5\r\n0,5;5,02;2,6\r\n1;7,6;-7,3\r\n1,5;7,72;-17,2\r\n2;5,38;-27\r\n");
    file.close();
    auto* dialog = new TableCsvDialog(model_.table(), window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->openFile(path);
    dialog->show();
    dialog->move(window_->geometry().center() - dialog->rect().center());
    shownDialog_ = dialog;
  } else if (state == QLatin1String("help")) {
    ContextHelp(windowHelpTopic(WindowId::Plot));
  }
}
