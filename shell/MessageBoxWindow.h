#pragma once
// MBox, the program's own message window, and the presenter that shows it
// for MBoxShow. The box is frameless and draws its own frame: a gradient and
// two bevelled lines in the colours of its kind (MessageBoxModel.h). Label3 is
// its title bar (dragging it moves the box), Label2 the text, But1(0..2) the
// drawn buttons with their captions Label1(0..2), Pic1 the icon of the kind,
// and one field may show: mboxlist (kind 1), inputtxt (kind 5) or DTPicker1
// (a date). Timer1 closes it by itself when the rules say so.
#include <QDialog>
#include <QPointer>
#include <array>

#include "shell/MessageService.h"
#include "shell/MessageBoxModel.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QTimer;

// One drawn button: raised, sunken while the mouse is held on it, marked when
// it is the default. A release over it, Enter or Space clicks it.
class MBoxButton : public QWidget {
  Q_OBJECT
 public:
  MBoxButton(int index, QWidget* parent);
  QLabel* caption() const { return caption_; }
  void setDefaultMark(bool on);
  bool isSunken() const { return sunken_; }
  QSize sizeHint() const override;

 Q_SIGNALS:
  void clicked(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int index_;
  QLabel* caption_;
  bool sunken_ = false;
  bool defaultMark_ = false;
};

class MBox : public QDialog {
  Q_OBJECT
 public:
  explicit MBox(QWidget* parent = nullptr);
  ~MBox() override;

  // Takes the title, text, kind, buttons and field of the message and shapes
  // the box to them.
  void fill(const MessageRequest& request);
  // The button pressed and the value of the visible field.
  MessageReply reply() const;

  void Label1_Click(int index);
  void Timer1_Timer();

  // The box on screen, if any (tests and the screenshot tour press its buttons).
  static MBox* current();
  // True once the box has run its activation (sound, focus, timer).
  bool isActivated() const { return activated_; }
  // How often Timer1 looks at the clock, in milliseconds.
  static void setTimerInterval(int ms);

  QLabel* Label2 = nullptr;
  QLabel* Label3 = nullptr;
  std::array<MBoxButton*, 3> But1{};
  std::array<QLabel*, 3> Label1{};
  QLabel* Pic1 = nullptr;
  QLineEdit* inputtxt = nullptr;
  QComboBox* mboxlist = nullptr;
  QDateEdit* DTPicker1 = nullptr;
  QTimer* Timer1 = nullptr;

 public Q_SLOTS:
  void reject() override;  // Esc and closing from outside do nothing: a button answers

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void activate();
  void sizeToText();

  MessageKindScheme scheme_;
  int buttonCount_ = 1;
  int result_ = 0;
  int defaultButton_ = 0;
  double closeAt_ = 0;  // date serial at which Timer1 closes the box
  bool shown_ = false;
  bool activated_ = false;
  bool textDark_ = true;
};

// Shows MBox for every MBoxShow of the desktop program.
class MBoxPresenter : public MessagePresenter {
 public:
  MessageReply present(const MessageRequest& request) override;
};
