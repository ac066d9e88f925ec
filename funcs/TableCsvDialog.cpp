#include "funcs/TableCsvDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "funcs/FunctionTable.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

QString csvFilter() { return Res(1886) + QStringLiteral(" (*.csv)"); }
QString startFolder() { return program().AppFolder.toText() + QStringLiteral("datos/"); }
bool isCsv(const QString& path) { return path.right(3).toLower() == QLatin1String("csv"); }

void cannotUseFile() {
  program().MessageSound = 2;
  MBoxShow(3, Res(1887), 3, 0, 0, QStringLiteral("Calvix  -  VelozEvaluator  -  CSV"));
}

// The pointer shows the wait while a file is read or written.
class WaitPointer {
 public:
  WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitPointer() { QApplication::restoreOverrideCursor(); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace

TableCsvDialog::TableCsvDialog(FunctionTable& table, QWidget* parent) : QDialog(parent), table_(table) {
  setObjectName(QStringLiteral("TableCsvDialog"));
  setWindowTitle(Res(1869));
  csv_.followSystem();

  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(Res(1870), this), 0, 0);
  fileName = new QLabel(this);
  fileName->setObjectName(QStringLiteral("fileName"));
  fileName->setTextInteractionFlags(Qt::TextSelectableByMouse);
  fileName->setMinimumWidth(300);
  grid->addWidget(fileName, 0, 1, 1, 3);
  auto* browseButton = new ChameleonButtonWidget(Res(1871), this);
  browseButton->setObjectName(QStringLiteral("browseButton"));
  connect(browseButton, &QPushButton::clicked, this, &TableCsvDialog::browse);
  grid->addWidget(browseButton, 0, 4);

  separatorCombo = new QComboBox(this);
  separatorCombo->setObjectName(QStringLiteral("separatorCombo"));
  separatorCombo->addItems({Res(1880), Res(1881)});
  decimalCombo = new QComboBox(this);
  decimalCombo->setObjectName(QStringLiteral("decimalCombo"));
  decimalCombo->addItems({Res(1881), Res(1882)});
  auto* autoButton = new ChameleonButtonWidget(Res(1874), this);
  autoButton->setObjectName(QStringLiteral("autoButton"));
  connect(autoButton, &QPushButton::clicked, this, &TableCsvDialog::detect);
  grid->addWidget(new QLabel(Res(1872), this), 1, 0);
  grid->addWidget(separatorCombo, 1, 1);
  grid->addWidget(new QLabel(Res(1873), this), 1, 2);
  grid->addWidget(decimalCombo, 1, 3);
  grid->addWidget(autoButton, 1, 4);
  for (QComboBox* combo : {separatorCombo, decimalCombo}) {
    connect(combo, &QComboBox::activated, this, [this] {
      takeChoices();
      fillPreview();
    });
  }

  auto* columns = new QHBoxLayout;
  const char* names[3] = {"columnX", "columnF", "columnG"};
  for (int i = 0; i < 3; ++i) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(QLatin1String(names[i]));
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* label = new QLabel(Res(1875 + i), this);
    label->setBuddy(combo);
    columns->addWidget(label);
    columns->addWidget(combo);
    columns->addSpacing(12);
    columnCombo[static_cast<size_t>(i)] = combo;
  }
  columns->addStretch(1);

  preview = new QTableWidget(this);
  preview->setObjectName(QStringLiteral("preview"));
  preview->setEditTriggers(QAbstractItemView::NoEditTriggers);
  preview->setMinimumSize(520, 220);
  preview->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton(Res(51), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("okButton"));
  ok->setDefault(true);
  buttons->addButton(Res(54), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cancelButton"));
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (importFile()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addLayout(columns);
  layout->addWidget(new QLabel(Res(1879), this));
  layout->addWidget(preview, 1);
  layout->addWidget(buttons);
  showChoices();
  fillPreview();
}

void TableCsvDialog::browse() {
  const QString path = QFileDialog::getOpenFileName(this, Res(1869), startFolder(), csvFilter());
  if (!path.isEmpty()) openFile(path);
}

bool TableCsvDialog::openFile(const QString& path) {
  if (!isCsv(path)) {
    ReportError(901, 2, 3, 0);
    return false;
  }
  QString text;
  {
    WaitPointer wait;
    if (!TableCsv::readFile(path, text)) text = QString();
  }
  if (text.isNull()) {
    cannotUseFile();
    return false;
  }
  text_ = text;
  fileName->setText(QDir::toNativeSeparators(path));
  detect();
  return true;
}

void TableCsvDialog::detect() {
  csv_.detect(text_);
  showChoices();
  fillPreview();
}

void TableCsvDialog::takeChoices() {
  csv_.separator = separatorCombo->currentIndex() == 0 ? QLatin1Char(';') : QLatin1Char(',');
  csv_.decimal = decimalCombo->currentIndex() == 0 ? QLatin1Char(',') : QLatin1Char('.');
  csv_.columnX = std::max(0, columnCombo[0]->currentIndex());
  csv_.columnF = std::max(0, columnCombo[1]->currentIndex());
  csv_.columnG = columnCombo[2]->currentIndex() - 1;
}

void TableCsvDialog::showChoices() {
  separatorCombo->setCurrentIndex(csv_.separator == QLatin1Char(';') ? 0 : 1);
  decimalCombo->setCurrentIndex(csv_.decimal == QLatin1Char(',') ? 0 : 1);
}

void TableCsvDialog::fillPreview() {
  const QList<QStringList> rows = csv_.preview(text_);
  const int count = std::max(2, csv_.fieldCount(text_));
  preview->clear();
  preview->setRowCount(static_cast<int>(rows.size()));
  preview->setColumnCount(count);
  QStringList headings;
  for (int c = 0; c < count; ++c) headings << Res(1889) + QLatin1Char(' ') + QString::number(c + 1);
  preview->setHorizontalHeaderLabels(headings);
  for (int r = 0; r < rows.size(); ++r) {
    for (int c = 0; c < rows.at(r).size(); ++c) preview->setItem(r, c, new QTableWidgetItem(rows.at(r).at(c)));
  }
  // The column choices follow the columns the file has; X and F keep theirs when they still exist.
  const int x = csv_.columnX, f = csv_.columnF, g = csv_.columnG;
  for (int i = 0; i < 3; ++i) {
    QComboBox* combo = columnCombo[static_cast<size_t>(i)];
    combo->clear();
    if (i == 2) combo->addItem(Res(1878));
    combo->addItems(headings);
  }
  columnCombo[0]->setCurrentIndex(x < count ? x : 0);
  columnCombo[1]->setCurrentIndex(f < count ? f : std::min(1, count - 1));
  columnCombo[2]->setCurrentIndex(g >= 0 && g < count ? g + 1 : 0);
}

bool TableCsvDialog::importFile() {
  takeChoices();
  WaitPointer wait;
  return csv_.import(table_, text_);
}

bool TableCsvDialog::importInto(FunctionTable& table, QWidget* parent) {
  TableCsvDialog dialog(table, parent);
  const QString path = QFileDialog::getOpenFileName(parent, Res(1869), startFolder(), csvFilter());
  if (path.isEmpty() || !dialog.openFile(path)) return false;
  return dialog.exec() == QDialog::Accepted;
}

bool TableCsvDialog::exportTo(const FunctionTable& table, const QString& path, const TableCsv& csv) {
  if (!isCsv(path)) {
    ReportError(900, 2, 3, 0);
    return false;
  }
  WaitPointer wait;
  if (TableCsv::writeFile(path, csv.write(table))) return true;
  cannotUseFile();
  return false;
}

bool TableCsvDialog::exportFrom(FunctionTable& table, QWidget* parent) {
  if (program().pointCount < 1) return false;
  QString path = QFileDialog::getSaveFileName(parent, Res(1868), startFolder(), csvFilter());
  if (path.isEmpty()) return false;
  if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".csv");
  TableCsv csv;
  if (!csv.askSeparators()) return false;
  return exportTo(table, path, csv);
}
