#include "funcs/ExprSymbols.h"

namespace {

char16_t fold(char16_t c) {
  if (c < 128) return (c >= 'A' && c <= 'Z') ? static_cast<char16_t>(c | 0x20) : c;
  return QChar(c).toCaseFolded().unicode();
}

bool sameName(QStringView a, QStringView b) {
  if (a.size() != b.size()) return false;
  for (qsizetype i = 0; i < a.size(); ++i) {
    if (fold(a[i].unicode()) != fold(b[i].unicode())) return false;
  }
  return true;
}

}  // namespace

std::uint32_t ExprSymbols::hashName(QStringView name) {
  std::uint32_t h = 2166136261u;
  for (QChar c : name) {
    h ^= fold(c.unicode());
    h *= 16777619u;
  }
  return h;
}

int ExprSymbols::findEntry(QStringView name, std::uint32_t hash) const {
  if (buckets_.empty()) return -1;
  const size_t mask = buckets_.size() - 1;
  for (size_t i = hash & mask;; i = (i + 1) & mask) {
    const std::int32_t e = buckets_[i];
    if (e < 0) return -1;
    if (sameName(entries_[static_cast<size_t>(e)].name, name)) return e;
  }
}

void ExprSymbols::rehash(size_t count) {
  buckets_.assign(count, -1);
  const size_t mask = count - 1;
  for (size_t e = 0; e < entries_.size(); ++e) {
    size_t i = hashName(entries_[e].name) & mask;
    while (buckets_[i] >= 0) i = (i + 1) & mask;
    buckets_[i] = static_cast<std::int32_t>(e);
  }
}

void ExprSymbols::insertEntry(const QString& name, Kind kind, int index) {
  const int existing = findEntry(name, hashName(name));
  if (existing >= 0) {
    entries_[static_cast<size_t>(existing)].kind = kind;
    entries_[static_cast<size_t>(existing)].index = index;
    return;
  }
  entries_.push_back({name, kind, index});
  // Keep the table at most half full.
  if (buckets_.size() < entries_.size() * 2) {
    rehash(buckets_.empty() ? 64 : buckets_.size() * 2);
  } else {
    const size_t mask = buckets_.size() - 1;
    size_t i = hashName(name) & mask;
    while (buckets_[i] >= 0) i = (i + 1) & mask;
    buckets_[i] = static_cast<std::int32_t>(entries_.size() - 1);
  }
}

ExprSymbols::Lookup ExprSymbols::find(QStringView name) const {
  const int e = findEntry(name, hashName(name));
  if (e < 0) return {};
  return {entries_[static_cast<size_t>(e)].kind, entries_[static_cast<size_t>(e)].index};
}

int ExprSymbols::variableSlot(QStringView name) {
  const Lookup l = find(name);
  if (l.kind == Kind::Variable) return l.index;
  if (l.kind != Kind::None) return -1;
  const int slot = static_cast<int>(names_.size());
  names_.push_back(name.toString());
  values_.emplace_back();
  if ((slot >> kChunkBits) >= static_cast<int>(chunks_.size())) chunks_.push_back(std::make_unique<Chunk>());
  number(slot) = 0;
  state(slot) = kUndefined;
  ++epoch_;
  insertEntry(names_.back(), Kind::Variable, slot);
  return slot;
}

void ExprSymbols::assign(int slot, const rt::Variant& value) {
  const auto s = static_cast<size_t>(slot);
  values_[s] = value;
  const rt::VType t = value.type();
  const bool plain = t == rt::VType::Integer || t == rt::VType::Long || t == rt::VType::Double;
  state(slot) = plain ? kPlainNumber : kOtherValue;
  number(slot) = plain ? value.rawNumber() : 0;
  if (!plain) ++epoch_;
}

const rt::Variant& ExprSymbols::value(int slot) const {
  const auto s = static_cast<size_t>(slot);
  switch (state(slot)) {
    case kDoubleOnly: values_[s] = rt::Variant(number(slot)); break;
    case kIntegerOnly: values_[s] = rt::Variant::integer(static_cast<std::int16_t>(number(slot))); break;
    case kLongOnly: values_[s] = rt::Variant::longValue(static_cast<std::int32_t>(number(slot))); break;
    default: return values_[s];
  }
  state(slot) = kPlainNumber;
  return values_[s];
}

void ExprSymbols::clearVariables() {
  for (size_t s = 0; s < values_.size(); ++s) {
    values_[s] = rt::Variant();
    number(static_cast<int>(s)) = 0;
    state(static_cast<int>(s)) = kUndefined;
  }
  ++epoch_;
}

void ExprSymbols::addFunctions(FunctionLibrary* library) {
  for (const FunctionDef& def : library->functions()) {
    const QString name = QString::fromLatin1(def.name);
    // A variable that already holds a value keeps the name; a slot that was
    // only named by a formula gives way.
    const Lookup l = find(name);
    if (l.kind == Kind::Variable && isDefined(l.index)) continue;
    functions_.push_back({&def, library});
    insertEntry(name, Kind::Function, static_cast<int>(functions_.size() - 1));
  }
}

void ExprSymbols::addObject(const QString& name, FunctionLibrary* library) {
  objects_.push_back({name, library});
  const Lookup l = find(name);
  if (l.kind == Kind::Variable && isDefined(l.index)) return;
  insertEntry(name, Kind::Object, static_cast<int>(objects_.size() - 1));
}

const FunctionDef* ExprSymbols::member(int object, QStringView name) const {
  for (const FunctionDef& def : objects_[static_cast<size_t>(object)].library->functions()) {
    if (sameName(QString::fromLatin1(def.name), name)) return &def;
  }
  return nullptr;
}
