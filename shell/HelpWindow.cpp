#include "shell/HelpWindow.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QStyle>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

#include "shell/LanguageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"

// The pages live in a static library: their resource is registered by hand.
static void initHelpResource() { Q_INIT_RESOURCE(help); }

namespace {

QString languageFolder() {
  static const char* const folders[] = {"es", "en", "fr", "ca"};
  const int block = program().LanguageOffset / 10000;
  return QString::fromLatin1(folders[block >= 0 && block < 4 ? block : 0]);
}

bool pageExists(const QString& lang, const QString& page) {
  return QFile::exists(QStringLiteral(":/help/%1/%2.html").arg(lang, page));
}

}  // namespace

QUrl HelpWindow::topicUrl(int topic) {
  initHelpResource();
  QString lang = languageFolder();
  QString page = helpPageOfTopic(topic);
  if (!pageExists(lang, page)) {
    if (pageExists(QStringLiteral("es"), page)) lang = QStringLiteral("es");
    else page = QStringLiteral("index");
  }
  if (!pageExists(lang, page)) lang = QStringLiteral("es");
  QUrl url(QStringLiteral("qrc:/help/%1/%2.html").arg(lang, page));
  if (page != QLatin1String("index")) url.setFragment(QStringLiteral("t%1").arg(topic));
  return url;
}

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
  initHelpResource();
  setObjectName(QStringLiteral("HelpWindow"));
  browser = new QTextBrowser(this);
  browser->setObjectName(QStringLiteral("browser"));
  browser->setOpenLinks(true);
  browser->setOpenExternalLinks(false);
  auto makeButton = [this](const char* name, QStyle::StandardPixmap icon) {
    auto* b = new QToolButton(this);
    b->setObjectName(QString::fromLatin1(name));
    b->setIcon(style()->standardIcon(icon));
    b->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return b;
  };
  backButton = makeButton("backButton", QStyle::SP_ArrowBack);
  forwardButton = makeButton("forwardButton", QStyle::SP_ArrowForward);
  contentsButton = makeButton("contentsButton", QStyle::SP_DirHomeIcon);
  backButton->setEnabled(false);
  forwardButton->setEnabled(false);
  connect(backButton, &QToolButton::clicked, browser, &QTextBrowser::backward);
  connect(forwardButton, &QToolButton::clicked, browser, &QTextBrowser::forward);
  connect(browser, &QTextBrowser::backwardAvailable, backButton, &QToolButton::setEnabled);
  connect(browser, &QTextBrowser::forwardAvailable, forwardButton, &QToolButton::setEnabled);
  connect(contentsButton, &QToolButton::clicked, this, [this] {
    browser->setSource(QUrl(QStringLiteral("qrc:/help/%1/index.html").arg(languageFolder())));
  });

  auto* bar = new QHBoxLayout;
  bar->addWidget(backButton);
  bar->addWidget(forwardButton);
  bar->addWidget(contentsButton);
  bar->addStretch(1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addLayout(bar);
  layout->addWidget(browser, 1);
  resize(640, 560);
  loadCaptions();
  connect(&languageNotifier(), &LanguageNotifier::languageChanged, this, &HelpWindow::loadCaptions);
  browser->setSource(QUrl(QStringLiteral("qrc:/help/%1/index.html").arg(languageFolder())));
}

void HelpWindow::loadCaptions() {
  setWindowTitle(Res(3021));
  backButton->setText(Res(3022));
  forwardButton->setText(Res(3023));
  contentsButton->setText(Res(3024));
}

void HelpWindow::showTopic(int topic) {
  loadCaptions();
  browser->setSource(topicUrl(topic));
}

void HelpWindowPresenter::showTopic(int topic) {
  if (auto* w = qobject_cast<HelpWindow*>(OpenWindow(WindowId::Help))) w->showTopic(topic);
}

void HelpWindowPresenter::helpCursorChanged(bool on) {
  if (on && !cursorSet_) {
    QApplication::setOverrideCursor(Qt::WhatsThisCursor);
    cursorSet_ = true;
  } else if (!on && cursorSet_) {
    QApplication::restoreOverrideCursor();
    cursorSet_ = false;
  }
}
