#pragma once
// A display text of a calculator model (numero, result): reads like a QString
// and, like a text box, reports a change only when an assignment really
// changes the text. The owner hangs its Change handler on it.
#include <QString>
#include <functional>
#include <utility>

class TextField {
 public:
  explicit TextField(QString initial = {}) : text_(std::move(initial)) {}
  TextField(const TextField&) = delete;
  TextField& operator=(const TextField&) = delete;

  TextField& operator=(const QString& text) {
    if (text == text_) return *this;
    text_ = text;
    if (changed_) changed_();
    return *this;
  }
  const QString& text() const { return text_; }
  operator const QString&() const { return text_; }  // NOLINT: reads as its text
  void onChange(std::function<void()> handler) { changed_ = std::move(handler); }

  friend bool operator==(const TextField& f, const QString& s) { return f.text_ == s; }
  friend bool operator==(const TextField& f, QLatin1StringView s) { return f.text_ == s; }

 private:
  QString text_;
  std::function<void()> changed_;
};
