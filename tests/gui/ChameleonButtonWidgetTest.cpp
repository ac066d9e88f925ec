// The drawn button as a widget: every look has three different forms, lines
// stay crisp at twice the pixel ratio, and mouse events reach the model
// (click, hover and the timer's leave); as a push button it keeps Qt's
// keyboard, default-button, check and icon behaviour.
#include <QDialog>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include "shell/ChameleonButtonView.h"
#include "shell/ChameleonButtonWidget.h"
#include "tests/support/GuiTestSupport.h"

class ChameleonButtonWidgetTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void everyLookHasThreeDifferentForms() {
    const QPalette pal;
    const QFont font;
    for (int look = 1; look <= ChameleonButton::kLooks; ++look) {
      ChameleonButton b;
      b.btype = static_cast<std::int16_t>(look);
      b.caption = QStringLiteral("Ok");
      QImage forms[3];
      const ChameleonButton::Form which[] = {ChameleonButton::Form::Up, ChameleonButton::Form::Hover,
                                             ChameleonButton::Form::Down};
      for (int i = 0; i < 3; ++i) {
        forms[i] = QImage(120, 40, QImage::Format_ARGB32_Premultiplied);
        forms[i].fill(Qt::white);
        QPainter p(&forms[i]);
        paintChameleonButton(p, b, which[i], pal, font);
      }
      QVERIFY2(forms[0] != forms[1], qPrintable(QStringLiteral("look %1: up = hover").arg(look)));
      QVERIFY2(forms[1] != forms[2], qPrintable(QStringLiteral("look %1: hover = down").arg(look)));
      QVERIFY2(forms[0] != forms[2], qPrintable(QStringLiteral("look %1: up = down").arg(look)));
    }
  }

  void bevelsStayCrispAtTwiceThePixelRatio() {
    ChameleonButton b;  // look 2, no caption: only whole-pixel lines and the face
    const QImage img = renderChameleonButton(b, QPalette(), QFont(), 2);
    QCOMPARE(img.size(), QSize(240, 80));
    QSet<QRgb> colours;
    for (int y = 0; y < img.height(); ++y) {
      for (int x = 0; x < img.width(); ++x) colours.insert(img.pixel(x, y));
    }
    QVERIFY2(colours.size() <= 5, qPrintable(QString::number(colours.size())));
    // The outer light line is two device pixels wide, then the inner one.
    QCOMPARE(img.pixel(10, 0), img.pixel(10, 1));
    QVERIFY(img.pixel(10, 1) != img.pixel(10, 2));
  }

  void mouseReachesTheModel() {
    QWidget host;
    host.resize(300, 200);
    auto* button = new ChameleonButtonWidget(QStringLiteral("Ok"), &host);
    button->setGeometry(20, 20, 120, 40);
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    bool over = true;
    button->model().pointerOver = [&over] { return over; };
    QSignalSpy clicked(button, &ChameleonButtonWidget::clicked);
    QSignalSpy entered(button, &ChameleonButtonWidget::mouseEntered);
    QSignalSpy left(button, &ChameleonButtonWidget::mouseLeft);
    QTest::mouseMove(button, QPoint(10, 10));
    QTRY_COMPARE(entered.count(), 1);
    QVERIFY(button->overTimer()->isActive());
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(clicked.count(), 1);
    over = false;  // the pointer is gone without a move event
    QTRY_COMPARE(left.count(), 1);
    QVERIFY(!button->overTimer()->isActive());
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, 10));
    QCOMPARE(clicked.count(), 1);
  }

  // What windows rely on from a QPushButton, through the drawn one.
  void keyboardFollowsThePushButtonRules() {
    QDialog dialog;
    auto* edit = new QLineEdit(&dialog);
    auto* ok = new ChameleonButtonWidget(QStringLiteral("&Aceptar"), &dialog);
    auto* other = new ChameleonButtonWidget(QStringLiteral("Otro"), &dialog);
    edit->setGeometry(10, 10, 100, 24);
    ok->setGeometry(10, 40, 100, 30);
    other->setGeometry(120, 40, 100, 30);
    ok->setDefault(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSignalSpy okClicks(ok, &QPushButton::clicked);
    QSignalSpy otherClicks(other, &QPushButton::clicked);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Return);  // the dialog's default button
    QCOMPARE(okClicks.count(), 1);
    QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);  // the mnemonic
    QTRY_COMPARE(okClicks.count(), 2);
    other->setFocus();
    QTest::keyClick(other, Qt::Key_Space);
    QCOMPARE(otherClicks.count(), 1);
    QTest::keyClick(other, Qt::Key_Return);  // auto-default inside a dialog
    QCOMPARE(otherClicks.count(), 2);
    QCOMPARE(okClicks.count(), 2);

    QWidget plain;  // outside a dialog Enter goes on to the window
    auto* key = new ChameleonButtonWidget(QStringLiteral("="), &plain);
    QSignalSpy keyClicks(key, &QPushButton::clicked);
    plain.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plain));
    key->setFocus();
    QTest::keyClick(key, Qt::Key_Return);
    QCOMPARE(keyClicks.count(), 0);
    QVERIFY(key->model().focused());
    const QImage focused = key->grab().toImage();  // with the dotted rectangle
    key->clearFocus();
    QVERIFY(!key->model().focused());
    QVERIFY(key->grab().toImage() != focused);
  }

  void checkableButtonStaysDownWhileChecked() {
    QWidget host;
    auto* button = new ChameleonButtonWidget(QStringLiteral("Ok"), &host);
    button->setGeometry(0, 0, 100, 30);
    button->setCheckable(true);
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(button->isChecked());
    QCOMPARE(button->currentForm(), ChameleonButton::Form::Down);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(!button->isChecked());
    QVERIFY(button->currentForm() != ChameleonButton::Form::Down);
  }

  // Caption, icon and colours set through the QPushButton interface reach
  // the painting.
  void paintsWhatThePushButtonHolds() {
    ChameleonButtonWidget button(QStringLiteral("a"));
    button.resize(90, 30);
    const QImage first = button.grab().toImage();
    static_cast<QAbstractButton&>(button).setText(QStringLiteral("b"));
    QVERIFY(button.grab().toImage() != first);

    QPixmap red(16, 16);
    red.fill(Qt::red);
    button.setText(QString());
    button.setIcon(QIcon(red));
    const QImage withIcon = button.grab().toImage();
    QCOMPARE(QColor(withIcon.pixel(45, 15)), QColor(Qt::red));  // alone, in the middle

    button.setIcon(QIcon());
    button.setText(QStringLiteral("a"));
    const QImage plain = button.grab().toImage();
    button.setDefault(true);  // framed
    QVERIFY(button.grab().toImage() != plain);
    button.setDefault(false);
    setButtonColours(&button, QColor(10, 200, 30), Qt::white);
    QCOMPARE(button.model().coltype, 2);
    QCOMPARE(QColor(button.grab().toImage().pixel(8, 15)), QColor(10, 200, 30));
  }

  void sizeHintLeavesRoomForTheCaption() {
    for (const char* caption : {"x", "Convertir unidades", "&Calcular"}) {
      ChameleonButtonWidget button{QString::fromUtf8(caption)};
      QString shown = button.text();
      shown.remove(QLatin1Char('&'));
      // The looks keep 4 pixels each side clear of the caption.
      QVERIFY2(button.sizeHint().width() >= button.fontMetrics().horizontalAdvance(shown) + 8, caption);
      QVERIFY(button.sizeHint().height() >= button.fontMetrics().height() + 6);
    }
  }
};

QTEST_MAIN(ChameleonButtonWidgetTest)
#include "ChameleonButtonWidgetTest.moc"
