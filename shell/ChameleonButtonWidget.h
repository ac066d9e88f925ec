#pragma once
// The drawn push button as a widget. It is a QPushButton, so clicked(),
// default and auto-default buttons in dialogs, mnemonics, shortcuts,
// checkable buttons, menus and layouts behave as on any push button; what it
// adds is the look: it owns a ChameleonButton model, forwards mouse, key and
// focus events to it (hover, OverTimer and the events the model raises) and
// paints itself with ChameleonButtonView instead of the style.
//
// Qt's own press handling decides when a click happens; the model decides
// how the button looks (hover, focus rectangle, look and colours).
#include <QPushButton>
#include <QTimer>

#include "shell/ChameleonButton.h"

class ChameleonButtonWidget : public QPushButton {
  Q_OBJECT

 public:
  explicit ChameleonButtonWidget(QWidget* parent = nullptr);
  explicit ChameleonButtonWidget(const QString& caption, QWidget* parent = nullptr);
  ChameleonButtonWidget(const QIcon& icon, const QString& caption, QWidget* parent = nullptr);

  ChameleonButton& model() { return model_; }
  const ChameleonButton& model() const { return model_; }
  void setLook(int btype);
  // Own colours (coltype 2): the face and the caption, in every form.
  void setColours(const QColor& face, const QColor& text);
  QTimer* overTimer() { return &overTimer_; }
  // The form painted now: down while pressed or checked, hover while the
  // pointer is over it, up otherwise.
  ChameleonButton::Form currentForm() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
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
  // Brings the model's copy of what Qt owns (caption, size, check state) up
  // to date before an event or a paint reads it.
  void syncModel();

  ChameleonButton model_;
  QTimer overTimer_;
};

// Gives a push button its own face and caption colours: a drawn button
// through its colour properties, any other through its palette.
void setButtonColours(QPushButton* button, const QColor& face, const QColor& text);
