#pragma once
// The state of the program's drawn push button: its public properties in the
// order the window design data stores them, and what the mouse, the keyboard
// and the hover timer do to it. The widget (ChameleonButtonWidget) and the
// command-line tool both drive this model; painting lives in
// ChameleonButtonView, which reads form() to pick the up, hover or down form.
//
// Hover works without mouse capture: the first mouse move over the button
// marks it hovered and starts OverTimer; each tick asks the host whether the
// pointer is still over it and, when not, stops the timer, redraws and
// raises MouseLeave. So a pointer that leaves faster than the mouse-move
// events still ends the hover.
#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

class ChameleonButton {
 public:
  // A colour with the high bit set names a system colour by its index (the
  // low byte), resolved when the button is painted.
  static constexpr std::uint32_t kSystemColour = 0x80000000u;
  static constexpr std::uint32_t kButtonFace = kSystemColour | 15;
  static constexpr std::uint32_t kButtonText = kSystemColour | 18;
  static constexpr int kLooks = 14;

  enum class Form { Up, Hover, Down };
  // In the order of their numbering.
  enum class Event { Click, MouseDown, MouseUp, MouseMove, KeyDown, KeyPress, KeyUp, MouseEnter, MouseLeave };
  struct Raised {
    Event event;
    int button = 0;  // mouse events: 1 left, 2 right, 4 middle; key events: the key code
    int shift = 0;   // 1 Shift, 2 Ctrl, 4 Alt
    int x = 0, y = 0;
  };
  static constexpr int kLeftButton = 1;
  static constexpr int kKeySpace = 32;
  static constexpr int kKeyEnter = 13;

  ChameleonButton();

  // ---- Properties, in their stored order --------------------------------------
  std::int16_t btype = 2;  // BTYPE: the look, 1 to 14
  QString caption;         // TX
  bool enabled = true;     // ENAB
  QString font;            // FONT: the family; empty is the container's font
  double fontSize = 0;     // its size in points; 0 is the container's
  bool fontBold = false;
  std::int16_t coltype = 1;  // COLTYPE: 1 the system's button colours, others bcol/fcol
  bool focusr = true;        // FOCUSR: dotted focus rectangle
  std::uint32_t bcol = kButtonFace;   // BCOL: face
  std::uint32_t bcolo = kButtonFace;  // BCOLO: face while hovered
  std::uint32_t fcol = kButtonText;   // FCOL: text
  std::uint32_t fcolo = kButtonText;  // FCOLO: text while hovered
  std::uint32_t mcol = 0xC0C0C0;      // MCOL: mask colour of the pictures
  std::int16_t mptr = 0;              // MPTR: mouse pointer
  QString micon;                      // MICON: custom pointer picture (a file)
  QString picn;                       // PICN: normal picture (a file)
  QString pich;                       // PICH: picture when hovered
  bool umcol = true;                  // UMCOL: use the mask colour
  bool soft = false;                  // SOFT: softer bevel shades
  std::int16_t picpos = 0;            // PICPOS: 0 left, 1 right, 2 top, 3 bottom, 4 behind the text
  bool ngrey = false;                 // NGREY: picture grey until hovered
  std::int16_t fx = 0;                // FX: 0 none, 1 embossed, 2 engraved, 3 shadowed text
  bool hand = false;                  // HAND: hand pointer while hovered
  bool check = false;                 // CHECK: a click toggles value
  bool value = false;                 // VALUE: checked (drawn down)

  static const QStringList& storedNames();
  // The property as the command-line tool prints it: numbers and colours in
  // decimal, Booleans True/False, pictures their file (empty for none).
  QString property(const QString& storedName) const;
  // Sets a property from text; false when the name is unknown or the value
  // does not fit (a look outside 1..14, a number that is not one).
  bool setProperty(const QString& storedName, const QString& text);
  // Gives the caption the instance's name, as a new button on a form has.
  void initProperties(const QString& instanceName);

  // ---- Events from the host -----------------------------------------------------
  void MouseMove(int button, int shift, int x, int y);
  void MouseDown(int button, int shift, int x, int y);
  void MouseUp(int button, int shift, int x, int y);
  void KeyDown(int key, int shift);
  void KeyPress(int ascii);
  void KeyUp(int key, int shift);
  void GotFocus();
  void LostFocus();
  void OverTimer_Timer();
  void Resize(int w, int h);
  // Paints form state (unless it is the form already drawn and not forced).
  void Redraw(Form state, bool force);

  // ---- What the host gives and reads ------------------------------------------
  // Whether the pointer is over the button now; asked by OverTimer.
  std::function<bool()> pointerOver;
  // Every event raised, as it is raised.
  std::function<void(const Raised&)> onEvent;
  // The button must be painted again.
  std::function<void()> onRedraw;
  // OverTimer started or stopped.
  std::function<void(bool)> onTimer;

  Form form() const { return lastDrawn_; }
  bool hovered() const { return isOver_; }
  bool pressed() const { return isDown_; }
  bool focused() const { return hasFocus_; }
  bool OverTimer() const { return overTimer_; }
  int width() const { return width_; }
  int height() const { return height_; }
  bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
  const QList<Raised>& events() const { return events_; }
  void clearEvents() { events_.clear(); }
  int redraws() const { return redraws_; }
  static QString eventName(Event e);

 private:
  void raise(Event e, int button = 0, int shift = 0, int x = 0, int y = 0);
  void setTimer(bool on);
  void startHover();
  void click();
  Form restingForm() const;

  bool isOver_ = false;
  bool isDown_ = false;
  bool spaceDown_ = false;
  bool hasFocus_ = false;
  bool overTimer_ = false;
  Form lastDrawn_ = Form::Up;
  int width_ = 120;
  int height_ = 40;
  int redraws_ = 0;
  QList<Raised> events_;
};
