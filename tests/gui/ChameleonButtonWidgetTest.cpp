// The drawn button as a widget: every look has three different forms, lines
// stay crisp at twice the pixel ratio, and mouse events reach the model
// (click, hover and the timer's leave).
#include <QPainter>
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
};

QTEST_MAIN(ChameleonButtonWidgetTest)
#include "ChameleonButtonWidgetTest.moc"
