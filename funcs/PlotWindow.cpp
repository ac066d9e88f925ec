#include "funcs/PlotWindow.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>
#include <QPushButton>
#include <QStatusBar>
#include <QScrollBar>
#include <QShortcut>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "funcs/FunctionTable.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotExtrasView.h"
#include "funcs/PlotPainterView.h"
#include "funcs/PlotPictureView.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"

namespace {

// The graphic cursor's mark: a small cross in a circle.
QPixmap cursorMark() {
  QPixmap pixmap(17, 17);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(Qt::white, 1.5));
  p.drawEllipse(QPointF(8.5, 8.5), 6, 6);
  p.drawLine(QPointF(8.5, 0), QPointF(8.5, 17));
  p.drawLine(QPointF(0, 8.5), QPointF(17, 8.5));
  return pixmap;
}

QString decimalsCaption(int n) { return QString::number(n) + QLatin1Char(' ') + Res(n == 1 ? 1669 : 1668); }

}  // namespace

PlotWindow::PlotWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Form100"));
  setWindowTitle(Res(1600));
  // The table of the function table window, or one of our own with the
  // default functions tabulated, so the window always has a curve to show.
  tableWindow_ = qobject_cast<FunctionTableWindow*>(findWindow(WindowId::FunctionTable));
  FunctionTable* table = tableWindow_ ? &tableWindow_->table() : nullptr;
  if (!table) {
    ownTable_ = std::make_unique<FunctionTable>();
    ownTable_->Form_Load();
    ownTable_->Form_Activate();
    ownTable_->Check1_Click();
    ownTable_->cmdResult_Click();
    table = ownTable_.get();
  }
  // The model reads that table to the end: the plot goes with it.
  if (tableWindow_) {
    connect(tableWindow_, &QObject::destroyed, this, [this] {
      hide();
      deleteLater();
    });
  }
  model_ = std::make_unique<PlotModel>(*table);
  model_->hooks.redraw = [this] {
    if (Picture2) Picture2->invalidate();
  };
  model_->hooks.print = [this] { print(); };
  model_->hooks.busy = [](bool on) {
    if (on) QApplication::setOverrideCursor(Qt::WaitCursor);
    else QApplication::restoreOverrideCursor();
  };

  Picture2 = new PlotPictureView(*model_, this);
  setCentralWidget(Picture2);
  Picture2->resized = [this](QSize s) {
    model_->Form_Resize(s.width(), s.height());
    refresh();
  };
  Picture2->mouseMoved = [this](QPointF p) {
    model_->Picture2_MouseMove(p.x(), p.y());
    placeReadout();
  };
  Picture2->mouseLeft = [this] {
    model_->Picture2_MouseLeave();
    placeReadout();
  };
  Picture2->keyPressed = [this](int key) {
    const bool taken = model_->Form_KeyDown(key);
    if (taken) {
      placeCursor();
      placeReadout();
    }
    return taken;
  };
  // Copy: the picture as it stands, for any program that takes images.
  for (const QKeySequence& keys : {QKeySequence(QKeySequence::Copy), QKeySequence(Qt::CTRL | Qt::Key_Insert)}) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, &PlotWindow::copyPicture);
  }
  buildOverlays();
  buildList();
  buildIntegralPanel();
  buildMenus();
  extras_ = new PlotExtrasView(this, *model_, Picture2, [this] { Command2_Click(); });
  Text2 = new QLabel(this);
  Text2->setObjectName(QStringLiteral("Text2"));
  statusBar()->addWidget(Text2, 1);
  setProperty("screenshotStates", QStringList{QStringLiteral("fg"), QStringLiteral("derivative"),
                                               QStringLiteral("bars"), QStringLiteral("integral"),
                                               QStringLiteral("extrema"), QStringLiteral("zeros")} +
                                       PlotExtrasView::screenshotStates());
  setProperty("screenshotScreenStates", PlotExtrasView::screenshotStates());
  buildCurveTools();
  resize(820, 600);
}

PlotWindow::~PlotWindow() {
  if (model_->tools.running()) QApplication::restoreOverrideCursor();  // closed while smoothing
}

template <typename Handler>
void PlotWindow::act(Handler&& handler) {
  handler();
  refresh();
}

// ---- Building -------------------------------------------------------------------------

void PlotWindow::buildOverlays() {
  QFont small = font();
  small.setPointSizeF(8);
  for (int i = 0; i <= 5; ++i) {
    auto* box = new QLineEdit(Picture2);
    box->setObjectName(QStringLiteral("Text1_%1").arg(i));
    box->setFont(small);
    box->setAlignment(i == 0 || i == 5 ? Qt::AlignLeft : (i == 1 || i == 2 ? Qt::AlignHCenter : Qt::AlignRight));
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this, i](const QString& text) { model_->Text1[static_cast<size_t>(i)] = text; });
    Text1[static_cast<size_t>(i)] = box;
  }
  Label1 = new QLabel(Picture2);
  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setFont(small);
  Label1->setAttribute(Qt::WA_TransparentForMouseEvents);
  Image4 = new QLabel(Picture2);
  Image4->setObjectName(QStringLiteral("Image4"));
  Image4->setPixmap(cursorMark());
  Image4->resize(17, 17);
  Image4->setAttribute(Qt::WA_TransparentForMouseEvents);
  Image4->hide();
}

void PlotWindow::buildList() {
  Picture1 = new QFrame(Picture2);
  Picture1->setObjectName(QStringLiteral("Picture1"));
  Picture1->setFrameShape(QFrame::StyledPanel);
  Picture1->setAutoFillBackground(true);
  auto* layout = new QGridLayout(Picture1);
  layout->setContentsMargins(4, 4, 4, 4);
  Label4 = new QLabel(Picture1);
  Label4->setObjectName(QStringLiteral("Label4"));
  Label4->setWordWrap(true);
  Image1 = new QToolButton(Picture1);
  Image1->setObjectName(QStringLiteral("Image1"));
  Image1->setText(QStringLiteral("×"));
  Image1->setToolTip(Res(1672));
  connect(Image1, &QToolButton::clicked, this, [this] { act([&] { model_->Image1_Click(); }); });
  MSFlexGrid1 = new QTableWidget(Picture1);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1->verticalHeader()->hide();
  // Columns as wide as their numbers: a list of 15-digit values stays on one line each.
  MSFlexGrid1->setWordWrap(false);
  MSFlexGrid1->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(Label4, 0, 0);
  layout->addWidget(Image1, 0, 1, Qt::AlignTop);
  layout->addWidget(MSFlexGrid1, 1, 0, 1, 2);
  Picture1->hide();
}

void PlotWindow::buildIntegralPanel() {
  Picture5 = new QFrame(Picture2);
  Picture5->setObjectName(QStringLiteral("Picture5"));
  Picture5->setFrameShape(QFrame::StyledPanel);
  Picture5->setAutoFillBackground(true);
  auto* layout = new QGridLayout(Picture5);
  layout->setContentsMargins(6, 6, 6, 6);
  Label12 = new QLabel(Res(1741), Picture5);
  Label12->setObjectName(QStringLiteral("Label12"));
  layout->addWidget(Label12, 0, 0, 1, 4);
  const int captions[2] = {1733, 1734}, tips[2] = {1738, 1740};
  for (int i = 0; i < 2; ++i) {
    layout->addWidget(new QLabel(Res(captions[i]), Picture5), 1, 2 * i);
    auto* box = new QLineEdit(Picture5);
    box->setObjectName(QStringLiteral("Text5_%1").arg(i));
    box->setToolTip(Res(tips[i]));
    connect(box, &QLineEdit::textEdited, this, [this, i](const QString& t) { model_->Text5[static_cast<size_t>(i)] = t; });
    connect(box, &QLineEdit::returnPressed, this, [this] { act([&] { model_->Command15_Click(); }); });
    layout->addWidget(box, 1, 2 * i + 1);
    Text5[static_cast<size_t>(i)] = box;
  }
  auto button = [this, layout](const char* name, const QString& caption, int tip, int col, auto handler) {
    auto* b = new ChameleonButtonWidget(caption, Picture5);
    b->setObjectName(QLatin1String(name));
    if (tip) b->setToolTip(Res(tip));
    connect(b, &QPushButton::clicked, this, [this, handler] { act(handler); });
    layout->addWidget(b, 2, col);
    return b;
  };
  Command14 = button("Command14", QStringLiteral("|  |"), 1727, 0, [this] { model_->Command14_Click(); });
  Command14->setCheckable(true);
  Command15 = button("Command15", Res(1726), 0, 1, [this] { model_->Command15_Click(); });
  Command12 = button("Command12", Res(1723), 1723, 2, [this] { model_->Command12_Click(); });
  Command13 = button("Command13", Res(1724), 1724, 3, [this] { model_->Command13_Click(); });
  Label13 = new QLabel(Picture5);
  Label13->setObjectName(QStringLiteral("Label13"));
  layout->addWidget(Label13, 3, 0, 1, 4);
  Picture5->hide();
  for (int i = 0; i < 2; ++i) {
    auto* bar = new QFrame(Picture2);
    bar->setObjectName(QStringLiteral("Picture6_%1").arg(i));
    bar->setStyleSheet(QStringLiteral("background: #ff4040;"));
    bar->setCursor(Qt::SizeHorCursor);
    bar->installEventFilter(this);
    bar->hide();
    Picture6[static_cast<size_t>(i)] = bar;
  }
}

QAction* PlotWindow::addItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler,
                             QActionGroup* group) {
  QAction* a = menu->addAction(caption);
  a->setObjectName(name);
  a->setCheckable(true);
  if (group) group->addAction(a);
  connect(a, &QAction::triggered, this, [this, handler, name] {
    // While a smoothing works only closing the window goes on; other menus say why not.
    if (name != QLatin1String("cerrarPlot") && model_->tools.refuseWhileRunning()) return refresh();
    act(handler);
  });
  actions_.insert(name, a);
  return a;
}

void PlotWindow::buildMenus() {
  PlotModel& m = *model_;
  auto plain = [](QAction* a) { a->setCheckable(false); };

  QMenu* file = menuBar()->addMenu(Res(500));
  plain(addItem(file, QStringLiteral("imprimirPlot"), Res(55), [&m] { m.imprimirPlot_Click(); }));
  QMenu* printOptions = file->addMenu(Res(1604));
  auto* printGroup = new QActionGroup(this);
  for (int i = 0; i < 2; ++i) {
    addItem(printOptions, QStringLiteral("printcolor_%1").arg(i), Res(1609 + i), [&m, i] { m.printcolor_Click(i); },
            printGroup);
  }
  plain(addItem(file, QStringLiteral("guardarImagen"), Res(1673), [this] { saveImage(); }));
  file->addSeparator();
  plain(addItem(file, QStringLiteral("cerrarPlot"), Res(1672), [this] { close(); }));

  QMenu* view = menuBar()->addMenu(Res(1601));
  addItem(view, QStringLiteral("menureja"), Res(1650), [&m] { m.menureja_Click(); });
  addItem(view, QStringLiteral("menucero"), Res(1649), [&m] { m.menucero_Click(); });
  addItem(view, QStringLiteral("menucero1"), Res(1648), [&m] { m.menucero1_Click(); });
  addItem(view, QStringLiteral("NoUnirPolos"), Res(1651), [&m] { m.NoUnirPolos_Click(); });
  addItem(view, QStringLiteral("leyenda"), Res(1652), [&m] { m.leyenda_Click(); });
  addItem(view, QStringLiteral("mostrarGx"), Res(1657), [&m] { m.mostrarGx_Click(); });
  view->addSeparator();
  addItem(view, QStringLiteral("ocultarPuntos"), Res(1629), [&m] { m.ocultarPuntos_Click(); });
  addItem(view, QStringLiteral("menuufunc_0"), Res(1630), [&m] { m.menuufunc_Click(0); });
  addItem(view, QStringLiteral("menuufunc_1"), Res(1631), [&m] { m.menuufunc_Click(1); });
  addItem(view, QStringLiteral("menuuderiv"), Res(1632), [&m] { m.menuuderiv_Click(); });
  QMenu* widths = view->addMenu(Res(1611));
  auto* widthGroup = new QActionGroup(this);
  for (int i = 0; i < 4; ++i) {
    addItem(widths, QStringLiteral("PlotTrazo_%1").arg(i), Res(1605 + i), [&m, i] { m.PlotTrazo_Click(i); }, widthGroup);
  }
  QMenu* points = view->addMenu(Res(1623));
  auto* pointGroup = new QActionGroup(this);
  for (int i = 0; i < 3; ++i) {
    addItem(points, QStringLiteral("menupunto_%1").arg(i), Res(1653 + i), [&m, i] { m.menupunto_Click(i); }, pointGroup);
  }
  QMenu* mouse = view->addMenu(Res(1659));
  auto* mouseGroup = new QActionGroup(this);
  for (int i = 0; i < 4; ++i) {
    addItem(mouse, QStringLiteral("menuRaton_%1").arg(i), Res(1660 + i), [this, i] {
      model_->menuRaton_Click(i);
      Picture2->setPointer(i);
    }, mouseGroup);
  }
  view->addSeparator();
  addItem(view, QStringLiteral("menubarras"), Res(1638), [&m] { m.menubarras_Click(); });
  QMenu* fills = view->addMenu(Res(1639));
  auto* fillGroup = new QActionGroup(this);
  for (int i = 0; i < 8; ++i) {
    addItem(fills, QStringLiteral("barrasopc_%1").arg(i), Res(1640 + i), [&m, i] { m.barrasopc_Click(i); }, fillGroup);
  }

  QMenu* scale = menuBar()->addMenu(Res(1602));
  for (int i = 0; i < 3; ++i) {
    plain(addItem(scale, QStringLiteral("menuautoesc_%1").arg(i), Res(1664 + i), [&m, i] { m.menuautoesc_Click(i); }));
  }
  QMenu* format = scale->addMenu(Res(1667));
  auto* formatGroup = new QActionGroup(this);
  for (int i = 0; i <= 4; ++i) {
    addItem(format, QStringLiteral("menuformatonumdec_%1").arg(i), decimalsCaption(i),
            [&m, i] { m.menuformatonumdec_Click(i); }, formatGroup);
  }

  QMenu* analysis = menuBar()->addMenu(Res(1603));
  QMenu* derivatives = analysis->addMenu(Res(1676));
  for (int n = 1; n <= 3; ++n) {
    addItem(derivatives, QStringLiteral("menumderiv_%1").arg(n),
            QString::number(n) + Res(1622) + Res(1621) + QLatin1Char(' ') + Res(1620) + QStringLiteral(" F(x)"),
            [&m, n] { m.menumderiv_Click(n); });
  }
  const int curves[3] = {1624, 1625, 1626};
  QMenu* extrema = analysis->addMenu(Res(1670));
  QMenu* zeros = analysis->addMenu(Res(1671));
  for (int k = 0; k < 3; ++k) {
    addItem(extrema, QStringLiteral("MaxyMin1_%1").arg(k), Res(curves[k]), [&m, k] { m.MaxyMin1_Click(k); });
    addItem(zeros, QStringLiteral("cerosfunc1_%1").arg(k), Res(curves[k]), [&m, k] { m.cerosfunc1_Click(k); });
  }
  QMenu* depth = analysis->addMenu(Res(1627));
  auto* depthGroup = new QActionGroup(this);
  for (int l = 1; l <= 4; ++l) {
    addItem(depth, QStringLiteral("MymNivel_%1").arg(l), Res(1628) + QLatin1Char(' ') + QString::number(l),
            [&m, l] { m.MymNivel_Click(l); }, depthGroup);
  }
  analysis->addSeparator();
  QMenu* cross = analysis->addMenu(Res(1656));
  for (int i = 0; i < 2; ++i) {
    addItem(cross, QStringLiteral("croscursor_%1").arg(i), Res(1677 + i), [this, i] {
      model_->croscursor_Click(i);
      Picture2->setFocus();
    });
  }
  plain(addItem(cross, QStringLiteral("crossincrem"), Res(1658), [&m] { m.crossincrem_Click(); }));

  QMenu* integrals = menuBar()->addMenu(Res(1615));
  plain(addItem(integrals, QStringLiteral("integRange"), Res(1616), [&m] { m.integRange_Click(); }));
  addItem(integrals, QStringLiteral("integralGRAF"), Res(1617), [&m] { m.integralGRAF_Click(); });
  plain(addItem(integrals, QStringLiteral("integralTEO"), Res(1618), [&m] { m.integralTEO_Click(); }));
  addItem(integrals, QStringLiteral("Icorrection"), Res(1619), [&m] { m.Icorrection_Click(); });
}

// ---- Events -------------------------------------------------------------------------------

void PlotWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (event->spontaneous()) return;
  // Each opening starts as a fresh load: autoscale on F over the table as it is now.
  model_->Form_Resize(Picture2->width(), Picture2->height());
  act([&] { model_->Form_Load(); });
}

void PlotWindow::closeEvent(QCloseEvent* event) {
  // The table's plot toggle follows the window.
  if (tableWindow_ && tableWindow_->table().plot) {
    tableWindow_->table().plot = false;
    tableWindow_->refresh();
  }
  QMainWindow::closeEvent(event);
}

bool PlotWindow::eventFilter(QObject* watched, QEvent* event) {
  for (int i = 0; i <= 5; ++i) {
    if (watched != Text1[static_cast<size_t>(i)]) continue;
    if (event->type() == QEvent::FocusIn) act([&] { model_->Text1_GotFocus(i); });
    if (event->type() == QEvent::FocusOut) act([&] { model_->Text1_LostFocus(i); });
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        act([&] { model_->Text1_Enter(); });
        return true;
      }
    }
    return false;
  }
  for (int i = 0; i < 2; ++i) {
    if (watched != Picture6[static_cast<size_t>(i)]) continue;
    if (event->type() == QEvent::MouseButtonPress) {
      dragging_ = i;
      return true;
    }
    if (event->type() == QEvent::MouseMove && dragging_ == i) {
      const double px = Picture2->mapFromGlobal(static_cast<QMouseEvent*>(event)->globalPosition()).x();
      model_->Picture6_Drag(i, px);
      placePanel();
      return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
      dragging_ = -1;
      return true;
    }
    return false;
  }
  return QMainWindow::eventFilter(watched, event);
}

// ---- Redraw and overlays ----------------------------------------------------------------

void PlotWindow::Command2_Click() { act([&] { model_->Command2_Click(); }); }

void PlotWindow::refresh() {
  if (refreshing_) return;
  refreshing_ = true;
  placeLimitBoxes();
  placeReadout();
  placeCursor();
  placeList();
  placePanel();
  tickMenus();
  refreshCurveTools();
  Text2->setText(model_->Text2);
  refreshing_ = false;
}

void PlotWindow::placeLimitBoxes() {
  for (int i = 0; i <= 5; ++i) {
    QLineEdit* box = Text1[static_cast<size_t>(i)];
    box->setGeometry(model_->limitBoxRect(i).toRect());
    box->setVisible(model_->Text1Visible[static_cast<size_t>(i)]);
    if (box->text() != model_->Text1[static_cast<size_t>(i)]) box->setText(model_->Text1[static_cast<size_t>(i)]);
  }
}

void PlotWindow::placeReadout() {
  const QColor text = PainterCanvas::toColor(model_->colour(PlotModel::kText));
  Label1->setStyleSheet(QStringLiteral("color: %1;").arg(text.name()));
  Label1->setText(model_->Label1);
  Label1->adjustSize();
  Label1->move(PlotModel::kMarginX + 90, Picture2->height() - PlotModel::kMarginY + 28);
  Label1->setVisible(model_->Label1Visible);
}

void PlotWindow::placeCursor() {
  double x = 0, y = 0;
  if (!model_->cursorPoint(x, y)) {
    Image4->hide();
    return;
  }
  const PlotModel& m = *model_;
  const double px = (x - m.ScaleLeft) / m.unitX, py = (m.ScaleTop - y) / m.unitY;
  Image4->move(static_cast<int>(px) - 8, static_cast<int>(py) - 8);
  Image4->show();
  Image4->raise();
}

void PlotWindow::placeList() {
  const PlotModel& m = *model_;
  Picture1->setVisible(m.Picture1Visible);
  if (!m.Picture1Visible) return;
  Label4->setText(m.Label4);
  MSFlexGrid1->setColumnCount(static_cast<int>(m.list.headings.size()));
  MSFlexGrid1->setHorizontalHeaderLabels(m.list.headings);
  MSFlexGrid1->setRowCount(static_cast<int>(m.list.rows.size()));
  for (int r = 0; r < m.list.rows.size(); ++r) {
    const QStringList& row = m.list.rows.at(r);
    for (int c = 0; c < row.size(); ++c) {
      auto* item = new QTableWidgetItem(row.at(c));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      MSFlexGrid1->setItem(r, c, item);
    }
  }
  // The list takes the width its columns need, within the picture.
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(false);
  MSFlexGrid1->resizeColumnsToContents();
  const int needed = MSFlexGrid1->horizontalHeader()->length() + 2 * MSFlexGrid1->frameWidth() +
                     MSFlexGrid1->verticalScrollBar()->sizeHint().width() + 8;
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  const int width = std::clamp(needed, 260, std::max(260, Picture2->width() - 2 * PlotModel::kMarginX));
  const int height = std::min(240, Picture2->height() - 2 * PlotModel::kMarginY);
  Picture1->setGeometry(Picture2->width() - PlotModel::kMarginX - width - 8, PlotModel::kMarginY + 8, width, height);
  Picture1->raise();
}

void PlotWindow::placePanel() {
  const PlotModel& m = *model_;
  Picture5->setVisible(m.Picture5Visible);
  if (m.Picture5Visible) {
    for (size_t i = 0; i < 2; ++i) {
      if (!Text5[i]->hasFocus() && Text5[i]->text() != m.Text5[i]) Text5[i]->setText(m.Text5[i]);
    }
    Label12->setText(m.Label12);
    Label13->setText(m.Label13);
    Label13->setVisible(m.Picture6Visible);
    Command14->setChecked(m.Picture6Visible);
    Picture5->adjustSize();
    Picture5->move(Picture2->width() - PlotModel::kMarginX - Picture5->width() - 8,
                   Picture2->height() - PlotModel::kMarginY - Picture5->height() - 8);
    Picture5->raise();
  }
  for (size_t i = 0; i < 2; ++i) {
    QFrame* bar = Picture6[i];
    bar->setVisible(m.Picture5Visible && m.Picture6Visible);
    if (!bar->isVisible()) continue;
    const int px = static_cast<int>((m.cursorX[i] - m.ScaleLeft) / m.unitX);
    bar->setGeometry(px - 2, PlotModel::kMarginY, 5, Picture2->height() - 2 * PlotModel::kMarginY);
    bar->raise();
  }
}

void PlotWindow::tickMenus() {
  const PlotModel& m = *model_;
  auto tick = [this](const QString& name, bool on) {
    if (QAction* a = actions_.value(name)) a->setChecked(on);
  };
  tick(QStringLiteral("menureja"), m.menureja);
  tick(QStringLiteral("menucero"), m.menucero);
  tick(QStringLiteral("menucero1"), m.menucero1);
  tick(QStringLiteral("NoUnirPolos"), m.NoUnirPolos);
  tick(QStringLiteral("leyenda"), m.leyenda);
  tick(QStringLiteral("mostrarGx"), m.mostrarGx);
  tick(QStringLiteral("ocultarPuntos"), m.ocultarPuntos);
  tick(QStringLiteral("menuuderiv"), m.menuuderiv);
  tick(QStringLiteral("menubarras"), m.menubarras);
  tick(QStringLiteral("integralGRAF"), m.integralGRAF);
  tick(QStringLiteral("Icorrection"), m.Icorrection);
  for (int i = 0; i < 2; ++i) {
    tick(QStringLiteral("menuufunc_%1").arg(i), m.menuufunc[static_cast<size_t>(i)]);
    tick(QStringLiteral("croscursor_%1").arg(i), m.croscursor[static_cast<size_t>(i)]);
    tick(QStringLiteral("printcolor_%1").arg(i), m.printcolor == i);
  }
  for (int i = 0; i < 3; ++i) {
    tick(QStringLiteral("MaxyMin1_%1").arg(i), m.MaxyMin1[static_cast<size_t>(i)]);
    tick(QStringLiteral("cerosfunc1_%1").arg(i), m.cerosfunc1[static_cast<size_t>(i)]);
    tick(QStringLiteral("menumderiv_%1").arg(i + 1), m.menumderiv[static_cast<size_t>(i + 1)]);
    tick(QStringLiteral("menupunto_%1").arg(i), m.menupunto == i);
  }
  for (int i = 0; i < 4; ++i) {
    tick(QStringLiteral("PlotTrazo_%1").arg(i), m.PlotTrazo == i);
    tick(QStringLiteral("menuRaton_%1").arg(i), m.menuRaton == i);
    tick(QStringLiteral("MymNivel_%1").arg(i + 1), m.MymNivel == i + 1);
  }
  for (int i = 0; i <= 4; ++i) tick(QStringLiteral("menuformatonumdec_%1").arg(i), m.decimals == i);
  for (int i = 0; i < 8; ++i) tick(QStringLiteral("barrasopc_%1").arg(i), m.barrasopc == i);
  if (QAction* g = actions_.value(QStringLiteral("croscursor_1"))) g->setEnabled(program().hasG != 0);
}

// ---- Printing and the image -------------------------------------------------------------

bool PlotWindow::printTo(QPrinter& printer) { return printPlot(*model_, printer); }

void PlotWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  if (!execPrintDialog(printer, this, windowTitle())) return;
  printTo(printer);
  model_->Form_Resize(Picture2->width(), Picture2->height());
}

QImage PlotWindow::picture() {
  const QImage image = renderPlotImage(*model_, Picture2->width(), Picture2->height(), devicePixelRatioF());
  model_->Form_Resize(Picture2->width(), Picture2->height());
  return image;
}

void PlotWindow::copyPicture() { QGuiApplication::clipboard()->setImage(picture()); }

void PlotWindow::saveImage() {
  const QString path = QFileDialog::getSaveFileName(this, Res(1673), program().AppFolder.toText() + QStringLiteral("datos/"),
                                                    Res(1675) + QStringLiteral(" (*.png)"));
  if (path.isEmpty()) return;
  picture().save(path, "PNG");
}

// ---- Screenshot tour ------------------------------------------------------------------------

void PlotWindow::showScreenshotState(const QString& state) {
  PlotModel& m = *model_;
  // The tour may reach here with the table window's table cleared: its default table, then.
  if (program().pointCount == 0 && tableWindow_) {
    QMetaObject::invokeMethod(tableWindow_, "showScreenshotState", Q_ARG(QString, QStringLiteral("function")));
  }
  // Shown again, so it stands above the table window, and loaded afresh.
  hide();
  show();
  if (showCurveState(state)) return;
  if (state == QLatin1String("fg")) {
    act([&] { m.menuautoesc_Click(2); });
  } else if (state == QLatin1String("derivative")) {
    act([&] { m.menumderiv_Click(1); });
  } else if (state == QLatin1String("bars")) {
    act([&] { m.barrasopc_Click(4); });
    act([&] { m.menubarras_Click(); });
  } else if (state == QLatin1String("integral")) {
    act([&] { m.integRange_Click(); });
    act([&] { m.Command14_Click(); });
    act([&] { m.Command15_Click(); });
  } else if (state == QLatin1String("extrema")) {
    act([&] { m.MaxyMin1_Click(0); });
  } else if (state == QLatin1String("zeros")) {
    act([&] { m.cerosfunc1_Click(0); });
  } else {
    extras_->showScreenshotState(state);
  }
}
