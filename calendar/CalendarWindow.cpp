#include "calendar/CalendarWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cmath>

#include "calendar/CalendarOperationsDialog.h"
#include "calendar/CalendarPrint.h"
#include "calendar/DateInfo.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/WindowRegistry.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"

namespace {

constexpr int kGridRows = 6;
constexpr int kHelpTopic = 100000;  // the calendar's help page

// The year view: twelve small months; a right-click anywhere closes it.
class YearView : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::RightButton) close();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
      close();
      return true;
    }
    return QWidget::eventFilter(watched, event);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape) close();
  }
};

// "CALENDARIO color " n as a colour: red in the low byte.
QColor settingColour(int n, QColor fallback) {
  return QColor::fromRgb(static_cast<QRgb>(calendar::calendarColour(n, fallback.rgb() & 0xFFFFFFu)));
}

QString dialogFilter(const QString& classic) {
  // "Description (*.age)|*.age|" -> "Description (*.age)"
  return classic.section(QLatin1Char('|'), 0, 0);
}

}  // namespace

CalendarWindow::CalendarWindow(QWidget* parent)
    : QMainWindow(parent), model_(std::make_unique<calendar::CalendarModel>()) {
  setObjectName(QStringLiteral("Form4"));
  setWindowTitle(Res(301));
  setProperty("screenshotStates", QStringList{QStringLiteral("events"), QStringLiteral("info"), QStringLiteral("operations"), QStringLiteral("year")});
  model_->events.fileDialog = [this](const calendar::EventList::FileDialogRequest& r) { return fileDialog(r); };

  auto* central = new QWidget(this);
  auto* top = new QHBoxLayout(central);

  // Month grid with its navigation.
  auto* left = new QVBoxLayout;
  auto* nav = new QHBoxLayout;
  auto* prev = new ChameleonButtonWidget(QStringLiteral("<"), central);
  auto* next = new ChameleonButtonWidget(QStringLiteral(">"), central);
  prev->setObjectName(QStringLiteral("PrevMonth"));
  next->setObjectName(QStringLiteral("NextMonth"));
  prev->setFixedWidth(32);
  next->setFixedWidth(32);
  monthLabel = new QLabel(central);
  monthLabel->setAlignment(Qt::AlignCenter);
  monthLabel->setStyleSheet(QStringLiteral("font-weight: bold"));
  nav->addWidget(prev);
  nav->addWidget(monthLabel, 1);
  nav->addWidget(next);
  left->addLayout(nav);
  MonthView1 = new QTableWidget(kGridRows, 8, central);
  MonthView1->setObjectName(QStringLiteral("MonthView1"));
  MonthView1->verticalHeader()->hide();
  MonthView1->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  MonthView1->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  MonthView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MonthView1->setSelectionMode(QAbstractItemView::SingleSelection);
  MonthView1->setMinimumSize(400, 260);
  left->addWidget(MonthView1, 1);
  top->addLayout(left, 1);
  connect(prev, &QPushButton::clicked, this, [this] {
    model_->stepMonth(-1);
    refresh();
  });
  connect(next, &QPushButton::clicked, this, [this] {
    model_->stepMonth(1);
    refresh();
  });
  connect(MonthView1, &QTableWidget::cellClicked, this, [this](int r, int c) { cellClicked(r, c, false); });
  connect(MonthView1, &QTableWidget::cellDoubleClicked, this, [this](int r, int c) { cellClicked(r, c, true); });

  // Information panel and events.
  auto* right = new QVBoxLayout;
  Frame1 = new QGroupBox(Res(339), central);
  Frame1->setObjectName(QStringLiteral("Frame1"));
  auto* frameLayout = new QVBoxLayout(Frame1);
  MSFlexGrid1 = new QTableWidget(0, 2, Frame1);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1->horizontalHeader()->hide();
  MSFlexGrid1->verticalHeader()->hide();
  MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
  MSFlexGrid1->setWordWrap(true);
  MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1->setMinimumWidth(440);
  frameLayout->addWidget(MSFlexGrid1);
  auto* pictures = new QHBoxLayout;
  Picture2 = new QLabel(Frame1);
  Picture2->setObjectName(QStringLiteral("Picture2"));
  Picture4 = new QLabel(Frame1);
  Picture4->setObjectName(QStringLiteral("Picture4"));
  pictures->addStretch();
  pictures->addWidget(Picture2);
  pictures->addSpacing(24);
  pictures->addWidget(Picture4);
  pictures->addStretch();
  frameLayout->addLayout(pictures);
  right->addWidget(Frame1, 3);

  eventsBox = new QGroupBox(Res(3768), central);
  eventsBox->setObjectName(QStringLiteral("eventsBox"));
  auto* eventsLayout = new QVBoxLayout(eventsBox);
  viewCombo = new QComboBox(eventsBox);
  viewCombo->setObjectName(QStringLiteral("viewCombo"));
  for (int id = 271; id <= 275; ++id) viewCombo->addItem(Res(id));
  forDate = new QLabel(eventsBox);
  forDate->setObjectName(QStringLiteral("forDate"));
  forDate->setWordWrap(true);
  List1 = new QListWidget(eventsBox);
  List1->setObjectName(QStringLiteral("List1"));
  List1->setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* edit = new QAction(Res(258), List1);
  auto* remove = new QAction(Res(259), List1);
  List1->addAction(edit);
  List1->addAction(remove);
  connect(edit, &QAction::triggered, this, [this] {
    model_->events.editEvent(List1->currentRow());
    refresh();
  });
  connect(remove, &QAction::triggered, this, [this] {
    model_->events.deleteEvent(List1->currentRow());
    refresh();
  });
  eventsLayout->addWidget(viewCombo);
  eventsLayout->addWidget(forDate);
  eventsLayout->addWidget(List1, 1);
  right->addWidget(eventsBox, 2);
  top->addLayout(right, 1);
  connect(viewCombo, &QComboBox::currentIndexChanged, this, [this](int view) {
    model_->events.setView(view);
    refresh();
  });

  setCentralWidget(central);
  buildMenus();
  resize(1000, 640);
  const ProgramState& p = program();
  if (p.LoadEventsFile == 1 && !p.EventsFile.isEmpty()) model_->events.openFile(p.EventsFile);
  refresh();
}

CalendarWindow::~CalendarWindow() = default;

void CalendarWindow::buildMenus() {
  auto item = [this](QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, [handler = std::move(handler)] { handler(); });
    return a;
  };
  QMenu* archivo = menuBar()->addMenu(Res(500));
  archivo->setObjectName(QStringLiteral("archivo"));
  item(archivo, QStringLiteral("NuevoFile"), Res(282), [this] { fileAction(&calendar::EventList::NuevoFile_Click); });
  item(archivo, QStringLiteral("FileAbre"), Res(715), [this] { fileAction(&calendar::EventList::FileAbre_Click); });
  item(archivo, QStringLiteral("FileGuarda"), Res(60), [this] { fileAction(&calendar::EventList::FileGuarda_Click); });
  archivo->addSeparator();
  QMenu* Prime = archivo->addMenu(Res(55));
  Prime->setObjectName(QStringLiteral("Prime"));
  QMenu* PrintCalenda = Prime->addMenu(Res(3766));
  PrintCalenda->setObjectName(QStringLiteral("PrintCalenda"));
  item(PrintCalenda, QStringLiteral("imprecal(0)"), Res(270), [this] { calendar::imprecal_Click(*model_, 0); });
  item(PrintCalenda, QStringLiteral("imprecal(1)"), Res(1610), [this] { calendar::imprecal_Click(*model_, 1); });
  item(Prime, QStringLiteral("PrintFecha"), Res(277), [this] { calendar::PrintFecha_Click(*model_); });
  item(Prime, QStringLiteral("imprimeLista"), Res(252), [this] { calendar::imprimeLista_Click(*model_); });
  archivo->addSeparator();
  item(archivo, QStringLiteral("SysDate"), Res(251), [] { calendar::SysDate_Click(); });
  archivo->addSeparator();
  item(archivo, QStringLiteral("Salir"), Res(59), [this] { close(); });

  QMenu* visual0 = menuBar()->addMenu(Res(302));
  visual0->setObjectName(QStringLiteral("visual0"));
  item(visual0, QStringLiteral("fechahoy"), Res(303), [this] {
    model_->select(std::floor(rt::Today()));
    refresh();
  });
  calhoy = item(visual0, QStringLiteral("calhoy"), Res(304), [this] { refresh(); });
  calhoy->setCheckable(true);
  calhoy->setChecked(true);
  MostSem = item(visual0, QStringLiteral("MostSem"), Res(305), [this] {
    model_->showWeekNumbers = MostSem->isChecked();
    refresh();
  });
  MostSem->setCheckable(true);
  MostSem->setChecked(model_->showWeekNumbers);
  QMenu* comienzo = visual0->addMenu(Res(313));
  comienzo->setObjectName(QStringLiteral("comienzo"));
  auto* days = new QActionGroup(comienzo);
  for (int d = 1; d <= 7; ++d) {
    QAction* a = item(comienzo, QStringLiteral("diasemana(%1)").arg(d), Res(313 + d), [this, d] {
      model_->firstWeekday = d;
      refresh();
    });
    a->setCheckable(true);
    a->setChecked(d == model_->firstWeekday);
    days->addAction(a);
  }
  item(visual0, QStringLiteral("calano"), Res(3767), [this] { calano_Click(); });
  visual0->addSeparator();
  QMenu* ShowInfo = visual0->addMenu(Res(338));
  ShowInfo->setObjectName(QStringLiteral("ShowInfo"));
  auto toggle = [&](const QString& name, int caption, int setting) {
    QAction* a = item(ShowInfo, name, Res(caption), [] {});
    a->setCheckable(true);
    a->setChecked(program().CalendarInfo[static_cast<size_t>(setting)]);
    connect(a, &QAction::toggled, this, [this, setting](bool on) {
      program().CalendarInfo[static_cast<size_t>(setting)] = on;
      refresh();
    });
    return a;
  };
  toggle(QStringLiteral("GenInfo"), 339, 1);
  toggle(QStringLiteral("ShowFin"), 326, 2);
  toggle(QStringLiteral("santoral"), 307, 3);
  Moon = toggle(QStringLiteral("Moon"), 375, 4);
  horoscopo = toggle(QStringLiteral("horoscopo"), 385, 5);
  Events = item(visual0, QStringLiteral("Events"), Res(398), [this] { eventsBox->setVisible(Events->isChecked()); });
  Events->setCheckable(true);
  Events->setChecked(true);

  QMenu* santo = menuBar()->addMenu(Res(307));
  santo->setObjectName(QStringLiteral("santoralMenu"));
  auto go = [this](const std::optional<calendar::SaintsRow>& row) {
    if (!row) return;
    model_->select(calendar::SaintsTable::dateOfRow(*row, model_->year()));
    refresh();
  };
  item(santo, QStringLiteral("santobusca"), Res(309), [this, go] { go(model_->saints.santobusca_Click()); });
  item(santo, QStringLiteral("santobuscasig"), Res(310), [this, go] { go(model_->saints.santobuscasig_Click()); });

  QMenu* CalendaColor = visual0->addMenu(Res(3770));
  CalendaColor->setObjectName(QStringLiteral("CalendaColor"));
  item(CalendaColor, QStringLiteral("DefColor1"), Res(3769), [this] {
    ProgramState defaults;
    applyDefaultSettings(defaults);
    for (int i = 1; i <= 6; ++i)
      program().CalendarColours[static_cast<size_t>(i)] = defaults.CalendarColours[static_cast<size_t>(i)];
    refresh();
  });
  item(CalendaColor, QStringLiteral("UserColor"), Res(336), [this] { UserColor_Click(); });

  QMenu* tools = menuBar()->addMenu(Res(321));
  tools->setObjectName(QStringLiteral("operacalMenu"));
  item(tools, QStringLiteral("operacal"), Res(321), [this] {
    CalendarOperationsDialog dialog(model_->selected(), this);
    dialog.exec();
  });
  item(tools, QStringLiteral("DefRemainder1"), Res(340), [this] { defineDate(0); });
  item(tools, QStringLiteral("DefRemainder2"), Res(341), [this] { defineDate(1); });

  QMenu* contextcal = menuBar()->addMenu(QStringLiteral("&?"));
  contextcal->setObjectName(QStringLiteral("contextcal"));
  item(contextcal, QStringLiteral("temasAyucal"), Res(324), [] { ContextHelp(kHelpTopic); });
  item(contextcal, QStringLiteral("calcerca"), Res(325), [] { OpenWindow(WindowId::About); });
}

void CalendarWindow::defineDate(int which) {
  ProgramState& p = program();
  const double current = p.CalendarDates[static_cast<size_t>(which)];
  setMessageDate(current == 0 ? model_->selected() : current);
  MBoxShow(0, Res(332), 5, 3, 0, Res(301) + QStringLiteral("  -  ") + Res(327));
  if (p.MessageResult != 0) return;
  const double chosen = p.MessageValue.toDouble();
  if (chosen != 0) p.CalendarDates[static_cast<size_t>(which)] = std::floor(chosen);
  refresh();
}

void CalendarWindow::UserColor_Click() {
  // Which of the six colours: a list message, then the colour chooser.
  setMessageList({Res(344), Res(345), Res(346), Res(347), Res(348), Res(358)}, Res(359));
  MBoxShow(0, Res(359), 1, 3, 0, Res(301) + QStringLiteral("  -  ") + Res(336));
  ProgramState& p = program();
  const int entry = static_cast<int>(p.MessageValue.toDouble());
  if (p.MessageResult != 0 || entry < 1 || entry > 6) return;
  const QColor chosen = QColorDialog::getColor(settingColour(entry, Qt::white), this, Res(336));
  if (!chosen.isValid()) return;
  const auto bgr = static_cast<std::int32_t>(chosen.red() | (chosen.green() << 8) | (chosen.blue() << 16));
  p.CalendarColours[static_cast<size_t>(entry)] = rt::Variant::longValue(bgr);
  refresh();
}

bool CalendarWindow::openDocument(const QString& path) {
  auto& events = model_->events;
  const auto dialog = events.fileDialog;
  events.fileDialog = [&](const calendar::EventList::FileDialogRequest& r) { return r.save ? dialog(r) : path; };
  const bool opened = events.FileAbre_Click();
  events.fileDialog = dialog;
  refresh();
  return opened;
}

void CalendarWindow::fileAction(bool (calendar::EventList::*handler)()) {
  (model_->events.*handler)();
  refresh();
}

QString CalendarWindow::fileDialog(const calendar::EventList::FileDialogRequest& r) {
  QFileDialog dialog(this, r.title, r.folder, dialogFilter(r.filter));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(r.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (r.save) dialog.setDefaultSuffix(QStringLiteral("age"));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().constFirst();
}

void CalendarWindow::fillMonth(QTableWidget* grid, int year, int month, bool full) const {
  calendar::CalendarModel view;
  view.firstWeekday = model_->firstWeekday;
  view.showMonth(year, month);
  const auto dates = view.gridDates();
  const bool weeks = model_->showWeekNumbers;
  QStringList headers{QStringLiteral("#")};
  headers << view.dayHeaders();
  grid->setHorizontalHeaderLabels(headers);
  grid->setColumnHidden(0, !weeks);
  QStringList eventDays;
  for (const QString& line : model_->events.events()) eventDays << line.left(5);
  for (int r = 0; r < kGridRows; ++r) {
    auto* w = new QTableWidgetItem(full || view.rowInMonth(r) ? QString::number(view.rowWeek(r)) : QString());
    w->setForeground(QColor(0x80, 0x80, 0x80));
    w->setTextAlignment(Qt::AlignCenter);
    grid->setItem(r, 0, w);
    for (int c = 0; c < 7; ++c) {
      const double d = dates[static_cast<size_t>(r * 7 + c)];
      const bool inMonth = rt::Month(d) == month;
      auto* it = new QTableWidgetItem(inMonth || full ? QString::number(rt::Day(d)) : QString());
      it->setTextAlignment(Qt::AlignCenter);
      it->setData(Qt::UserRole, d);
      // Colours 2, 3, 5: the month's background, its days, the days of the next and last months.
      it->setBackground(settingColour(2, Qt::white));
      it->setForeground(inMonth ? settingColour(3, Qt::black) : settingColour(5, QColor(0xB0, 0xB0, 0xB0)));
      if (inMonth && eventDays.contains(calendar::eventKey(d))) {
        QFont f = it->font();
        f.setBold(true);
        it->setFont(f);
        it->setForeground(QColor(0xC0, 0x00, 0x00));
      }
      if (rt::Weekday(d) == 1 && inMonth) it->setBackground(QColor(0xF0, 0xE8, 0xE8));
      if (full && calhoy && calhoy->isChecked() && d == std::floor(rt::Today())) {
        QFont f = it->font();
        f.setUnderline(true);
        f.setBold(true);
        it->setFont(f);
        it->setBackground(QColor(0xFF, 0xF0, 0xA0));
      }
      grid->setItem(r, c + 1, it);
    }
  }
}

void CalendarWindow::refresh() {
  calendar::CalendarModel& m = *model_;
  // Colours 1 and 4: the title's background and text; 6 the window's background.
  monthLabel->setStyleSheet(QStringLiteral("font-weight: bold; padding: 3px; background: %1; color: %2")
                                .arg(settingColour(1, QColor(0x80, 0x80, 0xC0)).name(),
                                     settingColour(4, QColor(0xFF, 0xC0, 0x80)).name()));
  MonthView1->setStyleSheet(QStringLiteral("QTableWidget { background: %1 }").arg(settingColour(6, Qt::white).name()));
  monthLabel->setText(rt::FormatDate(rt::DateSerial(m.year(), m.month(), 1), QStringLiteral("mmmm yyyy")));
  fillMonth(MonthView1, m.year(), m.month(), true);
  for (int r = 0; r < kGridRows; ++r)
    for (int c = 1; c < 8; ++c)
      if (MonthView1->item(r, c)->data(Qt::UserRole).toDouble() == m.selected()) MonthView1->setCurrentCell(r, c);

  const auto rows = m.panelRows();
  MSFlexGrid1->setRowCount(static_cast<int>(rows.size()));
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    MSFlexGrid1->setItem(i, 0, new QTableWidgetItem(rows[static_cast<size_t>(i)].first));
    MSFlexGrid1->setItem(i, 1, new QTableWidgetItem(rows[static_cast<size_t>(i)].second));
  }
  MSFlexGrid1->setColumnWidth(0, 130);
  MSFlexGrid1->resizeRowsToContents();

  const ProgramState& p = program();
  Picture2->setVisible(p.CalendarInfo[4]);
  Picture4->setVisible(p.CalendarInfo[5]);
  Picture2->setPixmap(moonPicture(calendar::moonPhase(m.selected()).picture, 72));
  Picture4->setPixmap(zodiacPicture(calendar::zodiacSign(m.selected()), 72));

  List1->clear();
  List1->addItems(m.events.List1());
  forDate->setText(m.events.forDateText());
  setWindowTitle(m.events.Caption());
}

void CalendarWindow::cellClicked(int row, int column, bool twice) {
  if (column == 0) return;
  const double d = MonthView1->item(row, column)->data(Qt::UserRole).toDouble();
  model_->select(d);
  if (twice) model_->events.MonthView1_DblClick(d);
  refresh();
}

QWidget* CalendarWindow::calano_Click() {
  auto* view = new YearView(this);
  view->setWindowFlag(Qt::Window);
  view->setAttribute(Qt::WA_DeleteOnClose);
  view->setObjectName(QStringLiteral("YearView"));
  const int year = model_->year();
  view->setWindowTitle(Res(301) + QStringLiteral("  -  ") + QString::number(year));
  auto* layout = new QGridLayout(view);
  for (int month = 1; month <= 12; ++month) {
    auto* box = new QVBoxLayout;
    auto* name = new QLabel(rt::FormatDate(rt::DateSerial(year, month, 1), QStringLiteral("mmmm")), view);
    name->setAlignment(Qt::AlignCenter);
    name->setStyleSheet(QStringLiteral("font-weight: bold"));
    auto* grid = new QTableWidget(kGridRows, 8, view);
    grid->setObjectName(QStringLiteral("Month%1").arg(month));
    grid->verticalHeader()->hide();
    grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grid->horizontalHeader()->setMinimumSectionSize(22);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionMode(QAbstractItemView::NoSelection);
    grid->setFocusPolicy(Qt::NoFocus);
    grid->viewport()->installEventFilter(view);
    QFont small = grid->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    grid->setFont(small);
    fillMonth(grid, year, month, false);
    box->addWidget(name);
    box->addWidget(grid);
    layout->addLayout(box, (month - 1) / 4, (month - 1) % 4);
  }
  auto* hint = new QLabel(Res(349), view);
  layout->addWidget(hint, 3, 0, 1, 4);
  view->resize(1180, 720);
  view->show();
  return view;
}

void CalendarWindow::showScreenshotState(const QString& state) {
  if (state == QLatin1String("year")) {
    calano_Click();
    return;
  }
  if (state == QLatin1String("operations")) {
    auto* dialog = new CalendarOperationsDialog(model_->selected(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->move(geometry().topLeft() + QPoint(40, 60));
    dialog->show();
    dialog->Calcular_Click();
    return;
  }
  program().CalendarInfo = {false, true, true, true, true, true};
  model_->select(rt::DateSerial(2024, 3, 19));
  if (model_->events.events().isEmpty())
    for (const auto& [day, text] : {std::pair{19, "Santo de Pepe"}, {8, "Día de la Mujer"}, {25, "Cena de trabajo"}})
      model_->events.addEvent(rt::DateSerial(2024, 3, day), QString::fromUtf8(text));
  if (state == QLatin1String("info")) program().CalendarDates = {rt::DateSerial(2024, 12, 25), rt::DateSerial(2024, 1, 1)};
  refresh();
}

void CalendarWindow::closeEvent(QCloseEvent* event) {
  if (!model_->events.queryClose()) {
    event->ignore();
    return;
  }
  QMainWindow::closeEvent(event);
}

QPixmap CalendarWindow::moonPicture(int picture, int size) {
  QPixmap pm(size, size);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF disc(2, 2, size - 4, size - 4);
  p.setPen(QPen(QColor(0x40, 0x40, 0x50), 1));
  p.setBrush(QColor(0x30, 0x30, 0x40));
  p.drawEllipse(disc);
  // Phase angle from the picture index: 1 new, 16 full, 31 new again.
  const double phase = (picture - 1) / 30.0 * 2 * M_PI;
  const double k = std::cos(phase);  // width of the terminator's half-ellipse
  const double r = disc.width() / 2;
  const QPointF c = disc.center();
  QPainterPath lit;
  const bool waxing = phase <= M_PI;
  // The lit limb: the right half while waxing, the left half while waning.
  lit.moveTo(c.x(), c.y() - r);
  lit.arcTo(disc, 90, waxing ? -180 : 180);
  const QRectF terminator(c.x() - r * std::fabs(k), c.y() - r, 2 * r * std::fabs(k), 2 * r);
  const bool crescent = k > 0;
  lit.arcTo(terminator, 270, (waxing == crescent) ? 180 : -180);
  lit.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0xF4, 0xEE, 0xC8));
  p.drawPath(lit);
  return pm;
}

QPixmap CalendarWindow::zodiacPicture(int sign, int size) {
  static const char16_t kGlyphs[12] = {u'\u2651', u'\u2652', u'\u2653', u'\u2648', u'\u2649', u'\u264A',
                                       u'\u264B', u'\u264C', u'\u264D', u'\u264E', u'\u264F', u'\u2650'};
  QPixmap pm(size, size);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x20, 0x30, 0x60));
  p.drawRoundedRect(QRectF(1, 1, size - 2, size - 2), 10, 10);
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setPixelSize(size * 3 / 5);
  p.setFont(f);
  p.setPen(QColor(0xF0, 0xD0, 0x60));
  p.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, QString(QChar(kGlyphs[(sign % 12 + 12) % 12])));
  return pm;
}
