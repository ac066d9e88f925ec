#include "shell/WindowCaptions.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>
#include <array>

#include "shell/LanguageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

constexpr int kBlock = 10000;
constexpr const char* kOffsetProperty = "captionOffset";

// Text -> string number, one map per language, built on first use. Where
// two numbers share a text, the lower one answers.
const QHash<QString, int>& reverseTable(int offset) {
  static std::array<QHash<QString, int>, 4> maps;
  static std::array<bool, 4> built{};
  const auto block = static_cast<std::size_t>(std::clamp(offset / kBlock, 0, 3));
  if (!built[block]) {
    built[block] = true;
    for (int id = kBlock - 1; id >= 0; --id) {
      const QString text = LoadResString(static_cast<int>(block) * kBlock + id);
      if (!text.isEmpty()) maps[block].insert(text, id);
    }
  }
  return maps[block];
}

QString translatePiece(const QString& text, int fromOffset, int toOffset) {
  const auto it = reverseTable(fromOffset).constFind(text);
  if (it == reverseTable(fromOffset).constEnd()) return text;
  const QString translated = LoadResString(toOffset + *it);
  return translated.isEmpty() ? text : translated;
}

template <typename Get, typename Set>
void rewrite(Get get, Set set, int from, int to) {
  const QString old = get();
  if (old.isEmpty()) return;
  const QString now = TranslateText(old, from, to);
  if (now != old) set(now);
}

void translateWidget(QWidget* w, int from, int to) {
  rewrite([w] { return w->toolTip(); }, [w](const QString& t) { w->setToolTip(t); }, from, to);
  if (w->isWindow()) rewrite([w] { return w->windowTitle(); }, [w](const QString& t) { w->setWindowTitle(t); }, from, to);
  if (auto* l = qobject_cast<QLabel*>(w)) {
    rewrite([l] { return l->text(); }, [l](const QString& t) { l->setText(t); }, from, to);
  } else if (auto* b = qobject_cast<QAbstractButton*>(w)) {
    rewrite([b] { return b->text(); }, [b](const QString& t) { b->setText(t); }, from, to);
  } else if (auto* g = qobject_cast<QGroupBox*>(w)) {
    rewrite([g] { return g->title(); }, [g](const QString& t) { g->setTitle(t); }, from, to);
  } else if (auto* e = qobject_cast<QLineEdit*>(w)) {
    rewrite([e] { return e->placeholderText(); }, [e](const QString& t) { e->setPlaceholderText(t); }, from, to);
  } else if (auto* tabs = qobject_cast<QTabWidget*>(w)) {
    for (int i = 0; i < tabs->count(); ++i) {
      rewrite([tabs, i] { return tabs->tabText(i); }, [tabs, i](const QString& t) { tabs->setTabText(i, t); }, from, to);
      rewrite([tabs, i] { return tabs->tabToolTip(i); }, [tabs, i](const QString& t) { tabs->setTabToolTip(i, t); }, from,
              to);
    }
  } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
    for (int i = 0; i < combo->count(); ++i) {
      rewrite([combo, i] { return combo->itemText(i); }, [combo, i](const QString& t) { combo->setItemText(i, t); },
              from, to);
    }
  } else if (auto* list = qobject_cast<QListWidget*>(w)) {
    for (int i = 0; i < list->count(); ++i) {
      QListWidgetItem* item = list->item(i);
      rewrite([item] { return item->text(); }, [item](const QString& t) { item->setText(t); }, from, to);
    }
  } else if (auto* table = qobject_cast<QTableWidget*>(w)) {
    for (int i = 0; i < table->columnCount(); ++i) {
      if (QTableWidgetItem* h = table->horizontalHeaderItem(i)) {
        rewrite([h] { return h->text(); }, [h](const QString& t) { h->setText(t); }, from, to);
      }
    }
  } else if (auto* tree = qobject_cast<QTreeWidget*>(w)) {
    QTreeWidgetItem* h = tree->headerItem();
    for (int i = 0; h && i < tree->columnCount(); ++i) {
      rewrite([h, i] { return h->text(i); }, [h, i](const QString& t) { h->setText(i, t); }, from, to);
    }
  } else if (auto* menu = qobject_cast<QMenu*>(w)) {
    rewrite([menu] { return menu->title(); }, [menu](const QString& t) { menu->setTitle(t); }, from, to);
  }
}

void translateAction(QAction* a, int from, int to) {
  const QString oldText = a->text();
  rewrite([a] { return a->text(); }, [a](const QString& t) { a->setText(t); }, from, to);
  // A tooltip of its own (not the one Qt derives from the text).
  if (a->toolTip() != QString(oldText).remove(QLatin1Char('&'))) {
    rewrite([a] { return a->toolTip(); }, [a](const QString& t) { a->setToolTip(t); }, from, to);
  }
}

// A window's model keeps the texts it computed when the window was built;
// a title the window takes from it later is brought to the language in use.
class TitleFollower : public QObject {
 public:
  TitleFollower(QWidget* window, int builtOffset) : QObject(window), window_(window), builtOffset_(builtOffset) {
    window->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == window_ && event->type() == QEvent::WindowTitleChange && !busy_) {
      const QString title = window_->windowTitle();
      const QString now = TranslateText(title, builtOffset_, program().LanguageOffset);
      if (now != title) {
        busy_ = true;
        window_->setWindowTitle(now);
        busy_ = false;
      }
    }
    return false;
  }

 private:
  QWidget* window_;
  int builtOffset_;
  bool busy_ = false;
};

}  // namespace

QString TranslateText(const QString& text, int fromOffset, int toOffset) {
  if (fromOffset == toOffset || text.isEmpty()) return text;
  const QString whole = translatePiece(text, fromOffset, toOffset);
  if (whole != text) return whole;
  static const QString kJoin = QStringLiteral("  -  ");
  if (!text.contains(kJoin)) return text;
  QStringList pieces = text.split(kJoin);
  for (QString& piece : pieces) piece = translatePiece(piece, fromOffset, toOffset);
  return pieces.join(kJoin);
}

void TranslateWindowTexts(QWidget* window, int fromOffset, int toOffset) {
  if (!window || fromOffset == toOffset) return;
  translateWidget(window, fromOffset, toOffset);
  for (QWidget* w : window->findChildren<QWidget*>()) translateWidget(w, fromOffset, toOffset);
  for (QAction* a : window->findChildren<QAction*>()) translateAction(a, fromOffset, toOffset);
}

void FollowProgramLanguage(QWidget* window) {
  if (!window) return;
  window->setProperty(kOffsetProperty, program().LanguageOffset);
  new TitleFollower(window, program().LanguageOffset);
  QObject::connect(&languageNotifier(), &LanguageNotifier::languageChanged, window, [window] {
    const int from = window->property(kOffsetProperty).toInt();
    const int to = program().LanguageOffset;
    TranslateWindowTexts(window, from, to);
    window->setProperty(kOffsetProperty, to);
  });
}
