#include "chrono/PowerWarningDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/Strings.h"

PowerWarningDialog::PowerWarningDialog(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("PowerWarningDialog"));
  setModal(false);
  heading_ = new QLabel(this);
  heading_->setObjectName(QStringLiteral("heading"));
  heading_->setWordWrap(true);
  QFont bold = heading_->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * 1.2);
  heading_->setFont(bold);
  Label = new QLabel(this);
  Label->setObjectName(QStringLiteral("Label"));
  QFont digits(ExtendedDisplayWindow::lcdFamily());
  digits.setPixelSize(40);
  Label->setFont(digits);
  Label->setStyleSheet(QStringLiteral("color: #c00000;"));
  secondsLabel_ = new QLabel(this);
  footer_ = new QLabel(this);
  footer_->setObjectName(QStringLiteral("footer"));
  footer_->setWordWrap(true);
  cancel_ = new ChameleonButtonWidget(Res(54), this);
  cancel_->setObjectName(QStringLiteral("cancel"));
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  // The button, Escape and the title bar all reject the dialog.
  connect(this, &QDialog::rejected, this, &PowerWarningDialog::cancelled);

  auto* count = new QHBoxLayout;
  count->addStretch();
  count->addWidget(Label);
  count->addWidget(secondsLabel_, 0, Qt::AlignBottom);
  count->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(18, 14, 18, 14);
  layout->setSpacing(10);
  layout->addWidget(heading_);
  layout->addLayout(count);
  layout->addWidget(footer_);
  layout->addWidget(cancel_, 0, Qt::AlignHCenter);
  setMinimumWidth(380);
}

void PowerWarningDialog::showWarning(const Chronometer::PowerWarning& w) {
  setWindowTitle(w.title);
  heading_->setText(w.heading);
  Label->setText(w.seconds);
  secondsLabel_->setText(w.secondsLabel);
  footer_->setText(w.footer);
  if (!isVisible()) {
    show();
    raise();
    activateWindow();
  }
}

void PowerWarningDialog::dismiss() { hide(); }
