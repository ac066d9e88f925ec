// The calculator's evaluation page: the expression field Text4, the program
// keys (run, store, clear), Command83 to evaluate, and the keys that open the
// colour viewer (botoncolor) and the resistor code (Command26).
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "calc/CalculatorWindow.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"

QWidget* CalculatorWindow::buildProgramsPage() {
  auto* page = new QWidget(this);
  page->setObjectName(QStringLiteral("programsPage"));
  auto* v = new QVBoxLayout(page);
  v->setContentsMargins(4, 4, 4, 4);
  v->setSpacing(6);
  Text4 = new QLineEdit(page);
  Text4->setObjectName(QStringLiteral("Text4"));
  Text4->setToolTip(Res(1447));
  connect(Text4, &QLineEdit::textEdited, this, [this](const QString& text) { engine_.Text4 = text; });
  connect(Text4, &QLineEdit::returnPressed, this, [this] {
    engine_.Command83_Click();
    afterEvent();
  });
  v->addWidget(Text4);
  v->addWidget(buildKeyGrid(KeypadPanel::Programs, page));
  if (QPushButton* evaluate = keyButton(QStringLiteral("Command83"))) {
    evaluate->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(evaluate, &QPushButton::customContextMenuRequested, this, [this] {
      engine_.rightClick(QStringLiteral("Command83"));
      afterEvent();
    });
  }
  auto* tools = new QVBoxLayout;  // one tool a row: their names are long
  auto tool = [page, tools](const char* name, int captionId, WindowId id) {
    auto* b = new ChameleonButtonWidget(Res(captionId), page);
    b->setObjectName(QString::fromLatin1(name));
    b->setToolTip(Res(captionId));
    b->setFocusPolicy(Qt::NoFocus);
    connect(b, &QPushButton::clicked, b, [id] { OpenWindow(id); });
    tools->addWidget(b);
  };
  tool("botoncolor", 4101, WindowId::ColourViewer);
  tool("Command26", 4345, WindowId::ResistorCode);
  v->addLayout(tools);
  v->addStretch(1);
  return page;
}

void CalculatorWindow::refreshPrograms() {
  if (Text4->text() != engine_.Text4) Text4->setText(engine_.Text4);
  // The run keys' tooltips repeat their programs.
  for (int i = 0; i < 5; ++i) {
    if (QPushButton* run = keyButton(QStringLiteral("Command79"), i)) {
      const QString text = CalculatorEngine::programTooltip(i);
      run->setToolTip(text.isEmpty() ? Res(4284) : text);
    }
  }
}
