#pragma once
// The drawn push button as a widget: forwards mouse, key and focus events to
// its ChameleonButton model, runs OverTimer, and paints with
// ChameleonButtonView. Windows use it where a plain push button would go and
// listen to clicked(), as they would on a QPushButton.
#include <QTimer>
#include <QWidget>

#include "shell/ChameleonButton.h"

class ChameleonButtonWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ChameleonButtonWidget(QWidget* parent = nullptr);
  ChameleonButtonWidget(const QString& caption, QWidget* parent = nullptr);

  ChameleonButton& model() { return model_; }
  const ChameleonButton& model() const { return model_; }
  void setText(const QString& caption);
  QString text() const { return model_.caption; }
  void setLook(int btype);
  void setChecked(bool on);
  bool isChecked() const { return model_.value; }
  QTimer* overTimer() { return &overTimer_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void clicked();
  void mouseEntered();
  void mouseLeft();
  // Every event the model raises, by its number (0 click .. 8 mouse leave).
  void raised(int event);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void connectModel();
  void updatePointer();

  ChameleonButton model_;
  QTimer overTimer_;
};
