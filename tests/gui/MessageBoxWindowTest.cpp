// The MBox window behind MBoxShow: every button set answered by mouse and by
// Enter in several kinds, the fields and their values, the timer rules with a
// clock the test moves, Shift+F10, sounds on activation, and the size.
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "shell/runtime/DateTime.h"
#include "shell/MessageBoxWindow.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

namespace {

std::vector<std::unique_ptr<QTimer>>& guards();
void closeLater(int ms);

// Runs act on the box as soon as it is up, while MBoxShow waits in it, with
// a guard that closes it should act fail to. The guard of the box before is
// no longer needed.
void whenShown(std::function<void(MBox*)> act) {
  guards().clear();
  auto* poll = new QTimer;
  poll->setInterval(5);
  QObject::connect(poll, &QTimer::timeout, poll, [poll, act] {
    MBox* box = MBox::current();
    if (!box || !box->isVisible()) return;
    poll->stop();
    poll->deleteLater();
    // The keyboard reaches the box once it is the active window.
    for (int i = 0; i < 200 && !(box->isActiveWindow() && box->isActivated()); ++i) QTest::qWait(10);
    if (!box->isActiveWindow()) qWarning("the message box \"%s\" is not active", qPrintable(box->Label2->text()));
    act(box);
  });
  poll->start();
  closeLater(5000);
}

// Keeps a box from hanging the test if an action failed to close it. The
// guards die with the test that set them.
std::vector<std::unique_ptr<QTimer>>& guards() {
  static std::vector<std::unique_ptr<QTimer>> list;
  return list;
}
void closeLater(int ms) {
  auto timer = std::make_unique<QTimer>();
  timer->setSingleShot(true);
  QObject::connect(timer.get(), &QTimer::timeout, [] {
    if (MBox* box = MBox::current()) box->Label1_Click(0);
  });
  timer->start(ms);
  guards().push_back(std::move(timer));
}

}  // namespace

class MessageBoxWindowTest : public QObject {
  Q_OBJECT

 private:
  MBoxPresenter presenter_;
  RecordingPlatform platform_;

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    setMessagePresenter(&presenter_);
    platform_.calls.clear();
    setPlatform(&platform_);
    MBox::setTimerInterval(10);
  }
  void cleanup() {
    guards().clear();
    rt::setClockForTesting(QDateTime());
    setPlatform(nullptr);
    QVERIFY(MBox::current() == nullptr);
  }

  void everyButtonOfEverySetByMouseAndByEnter() {
    for (int set = 0; set <= 18; ++set) {
      const int count = static_cast<int>(buttonSetStrings(set).size());
      for (int button = 0; button < count; ++button) {
        const int kind = (set + button) % 10;
        whenShown([button](MBox* box) { QTest::mouseClick(box->But1[static_cast<size_t>(button)], Qt::LeftButton); });
        MBoxShow(0, QStringLiteral("Set %1").arg(set), kind, set);
        QCOMPARE(program().MessageResult, button);

        // By keyboard: the default button has the focus and Enter presses it.
        whenShown([button](MBox* box) {
          QWidget* focus = QApplication::focusWidget();
          QCOMPARE(focus, static_cast<QWidget*>(box->But1[static_cast<size_t>(button)]));
          QTest::keyClick(focus, Qt::Key_Return);
        });
        // (Kinds 1 and 5 give their field the focus: Enter there is tested apart.)
        MBoxShow(0, QStringLiteral("Set %1").arg(set), kind == 1 || kind == 5 ? 6 : kind, set, button);
        QCOMPARE(program().MessageResult, button);
      }
    }
  }

  void aReleaseOutsideTheButtonDoesNotPressIt() {
    whenShown([](MBox* box) {
      MBoxButton* b = box->But1[1];
      QTest::mousePress(b, Qt::LeftButton);
      QVERIFY(b->isSunken());
      QTest::mouseRelease(b, Qt::LeftButton, {}, QPoint(-20, -20));
      QVERIFY(box->isVisible());
      QTest::mouseClick(b, Qt::LeftButton);
    });
    MBoxShow(0, QStringLiteral("Press and slide away"), 2, 6);
    QCOMPARE(program().MessageResult, 1);
  }

  void escapeDoesNotCloseTheBox() {
    whenShown([](MBox* box) {
      QTest::keyClick(box, Qt::Key_Escape);
      QVERIFY(box->isVisible());
      box->close();
      QVERIFY(box->isVisible());
      box->Label1_Click(1);
    });
    MBoxShow(0, QStringLiteral("Esc"), 3, 6);
    QCOMPARE(program().MessageResult, 1);
  }

  void inputLineTakesTheDecimalSymbolAndEnterAnswers() {
    program().DecimalSymbol = QStringLiteral(",");
    program().MessageDefault = QStringLiteral("3");
    whenShown([](MBox* box) {
      QVERIFY(box->inputtxt->isVisible());
      QCOMPARE(box->inputtxt->text(), QStringLiteral("3"));
      QTRY_COMPARE(box->inputtxt->selectedText(), QStringLiteral("3"));
      QTest::keyClicks(box->inputtxt, QStringLiteral("1.5"));
      QCOMPARE(box->inputtxt->text(), QStringLiteral("1,5"));
      QTest::keyClick(box->inputtxt, Qt::Key_Return);
    });
    MBoxShow(0, QStringLiteral("Value?"), 5, 3, 1);
    QCOMPARE(program().MessageResult, 0);  // Enter is the first button, whatever the default
    QCOMPARE(program().MessageValue.toText(), QStringLiteral("1,5"));
    QVERIFY(program().MessageDefault.isEmpty());
  }

  void listAnswersWithThePositionPlusOne() {
    setMessageList({QStringLiteral("Windows 9x/ME/NT"), QStringLiteral("Windows 2000/XP/Vista")}, QStringLiteral("Pick"));
    whenShown([](MBox* box) {
      QVERIFY(box->mboxlist->isVisible());
      QCOMPARE(box->mboxlist->currentIndex(), -1);
      QCOMPARE(box->mboxlist->placeholderText(), QStringLiteral("Pick"));
      box->mboxlist->setCurrentIndex(1);
      QTest::mouseClick(box->But1[0], Qt::LeftButton);
    });
    MBoxShow(0, QStringLiteral("System?"), 1, 3);
    QCOMPARE(program().MessageValue.toLong(), 2);

    setMessageList({QStringLiteral("a")}, QString());
    whenShown([](MBox* box) { box->Label1_Click(0); });
    MBoxShow(0, QStringLiteral("Nothing chosen"), 1, 3);
    QCOMPARE(program().MessageValue.toLong(), 0);
  }

  void enterOnTheListChoosesTheSelectedItem() {
    setMessageList({QStringLiteral("Windows 9x/ME/NT"), QStringLiteral("Windows 2000/XP/Vista")}, QStringLiteral("Pick"));
    whenShown([](MBox* box) {
      QTRY_VERIFY(box->mboxlist->hasFocus());
      QTest::keyClick(box->mboxlist, Qt::Key_Return);  // nothing chosen yet: the box stays
      QVERIFY(box->isVisible());
      QTest::keyClick(box->mboxlist, Qt::Key_Down);
      QTest::keyClick(box->mboxlist, Qt::Key_Down);
      QTest::keyClick(box->mboxlist, Qt::Key_Return);
    });
    MBoxShow(0, QStringLiteral("System?"), 1, 3, 1);
    QCOMPARE(program().MessageResult, 0);
    QCOMPARE(program().MessageValue.toLong(), 2);
  }

  void datePickerAnswersWithTheDateShown() {
    setMessageDate(rt::DateSerial(2024, 2, 29));
    whenShown([](MBox* box) {
      QVERIFY(box->DTPicker1->isVisible());
      QVERIFY(!box->inputtxt->isVisible());
      QCOMPARE(box->DTPicker1->date(), QDate(2024, 2, 29));
      box->DTPicker1->setDate(QDate(2025, 12, 31));
      box->Label1_Click(0);
    });
    MBoxShow(0, QStringLiteral("Date?"), 4, 0);
    QCOMPARE(program().MessageValue.type(), rt::VType::Date);
    QCOMPARE(program().MessageValue.toDouble(), rt::DateSerial(2025, 12, 31));
  }

  void timerClosesAPlainBoxAfterTheSetSecondsWithTheFirstButton() {
    const QDateTime start(QDate(2024, 5, 1), QTime(10, 0, 0));
    rt::setClockForTesting(start);
    program().AutoCloseMessages = rt::Variant::integer(3);  // "10 seg."
    bool openAtNine = false;
    whenShown([&](MBox* box) {
      QTRY_VERIFY(box->Timer1->isActive());
      rt::setClockForTesting(start.addSecs(9));
      QTest::qWait(60);
      openAtNine = box->isVisible();
      rt::setClockForTesting(start.addMSecs(10050));
    });
    MBoxShow(0, QStringLiteral("Closes by itself"), 4, 6, 1);
    QVERIFY(openAtNine);
    QCOMPARE(program().MessageResult, 0);  // "Si": the first button, not the default one
  }

  void timerNeverClosesABoxWithAnInputLine() {
    const QDateTime start(QDate(2024, 5, 1), QTime(10, 0, 0));
    rt::setClockForTesting(start);
    program().AutoCloseMessages = rt::Variant::integer(1);
    whenShown([&](MBox* box) {
      rt::setClockForTesting(start.addSecs(3600));
      QTest::qWait(60);
      QVERIFY(box->isVisible());
      QVERIFY(!box->Timer1->isActive());
      box->Label1_Click(1);
    });
    MBoxShow(0, QStringLiteral("Input"), 5, 3);
    QCOMPARE(program().MessageResult, 1);
  }

  void theAlarmMessageClosesAfterFifteenSecondsEvenWithTheTimerOff() {
    const QDateTime start(QDate(2024, 5, 1), QTime(23, 59, 50));
    rt::setClockForTesting(start);
    program().AutoCloseMessages = rt::Variant::integer(0);
    bool openAtFourteen = false;
    whenShown([&](MBox* box) {
      QTRY_VERIFY(box->Timer1->isActive());
      rt::setClockForTesting(start.addSecs(14));
      QTest::qWait(60);
      openAtFourteen = box->isVisible();
      rt::setClockForTesting(start.addSecs(16));  // past midnight
    });
    MBoxShow(0, QStringLiteral("Wake up"), 7, 8, 1, Res(441));
    QVERIFY(openAtFourteen);
    QCOMPARE(program().MessageResult, 0);
  }

  void activationPlaysTheSoundUnlessThereIsAnInputLine() {
    program().MessageSound = 2;
    whenShown([](MBox* box) {
      QTRY_VERIFY(!QTest::currentTestFailed() && box->isVisible());
      QTest::qWait(20);
      box->Label1_Click(0);
    });
    MBoxShow(0, QStringLiteral("Sound"), 2, 0);
    QVERIFY(platform_.calls.join(QLatin1Char('\n')).contains(QStringLiteral("ooh.wav sync")));

    platform_.calls.clear();
    program().MessageSound = 2;
    whenShown([](MBox* box) {
      QTest::qWait(20);
      box->Label1_Click(0);
    });
    MBoxShow(0, QStringLiteral("Quiet"), 5, 0);
    QVERIFY(platform_.calls.isEmpty());
  }

  void shiftF10StartsTheScreenSaver() {
    program().OsFamily = 2;
    whenShown([this](MBox* box) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
      QVERIFY(platform_.calls.contains(QStringLiteral("powerAction screensaver")));
      QVERIFY(box->isVisible());
      box->Label1_Click(0);
    });
    MBoxShow(0, QStringLiteral("Shift+F10"), 4, 0);
  }

  void theBoxFitsItsTextAndTheScreen() {
    QSize small, large;
    whenShown([&](MBox* box) {
      small = box->size();
      box->Label1_Click(0);
    });
    MBoxShow(0, QStringLiteral("OK"), 4, 0);
    QString longText;
    for (int i = 0; i < 30; ++i) longText += QStringLiteral("A rather long line of text that has to wrap. ");
    whenShown([&](MBox* box) {
      large = box->size();
      QVERIFY(box->Label2->wordWrap());
      box->Label1_Click(0);
    });
    MBoxShow(0, longText, 4, 0);
    QVERIFY(small.width() >= 300);
    QVERIFY(large.width() <= 640);
    QVERIFY(large.height() > small.height());
    QVERIFY(large.height() < 800);
  }
};

QTEST_MAIN(MessageBoxWindowTest)
#include "MessageBoxWindowTest.moc"
