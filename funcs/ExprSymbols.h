#pragma once
// The names an Evaluator knows: its variables (the namespace that persists
// between calls), the functions callable as global names, and the objects
// published with AddObject. All lookups ignore case.
//
// Variables live in slots that are never removed, so a compiled expression
// can refer to them by number. A slot exists as soon as a formula names the
// variable; it is "defined" from its first assignment on. Beside each value
// the slot keeps its number as a double and whether it is a plain number
// (16-bit, 32-bit or 64-bit), which is what the fast path reads, through
// addresses that stay valid for the life of the symbols. The epoch changes
// whenever a slot stops holding a plain number, so a compiled expression
// that found all its variables plain need not look again until it changes.
#include <QString>
#include <QStringView>
#include <cstdint>
#include <memory>
#include <vector>

#include "funcs/FunctionLibrary.h"
#include "shell/runtime/Variant.h"

class ExprSymbols {
 public:
  struct Function {
    const FunctionDef* def = nullptr;
    FunctionLibrary* library = nullptr;
  };

  enum class Kind : unsigned char { None, Variable, Function, Object };
  struct Lookup {
    Kind kind = Kind::None;
    int index = -1;  // slot, function or object number
  };

  // Slot states as the fast path reads them: up to kLastPlain the slot holds
  // a plain number. The "Only" states hold just the number, of the type they
  // name; the variant is made when someone asks for it.
  enum SlotState : unsigned char {
    kPlainNumber,
    kDoubleOnly,
    kIntegerOnly,
    kLongOnly,
    kOtherValue,
    kUndefined,
    kLastPlain = kLongOnly,
  };

  Lookup find(QStringView name) const;

  // The slot of a variable, created (undefined) when missing. Returns -1 when
  // the name belongs to a function or an object.
  int variableSlot(QStringView name);
  void assign(int slot, const rt::Variant& value);
  void assignNumber(int slot, double value) { assignNumber(slot, value, kDoubleOnly); }
  // type is kDoubleOnly, kIntegerOnly or kLongOnly, and value fits it.
  void assignNumber(int slot, double value, SlotState type) {
    Chunk& c = chunk(slot);
    c.numbers[slot & kChunkMask] = value;
    c.states[slot & kChunkMask] = type;
  }
  bool isDefined(int slot) const { return state(slot) != kUndefined; }
  const rt::Variant& value(int slot) const;
  const QString& variableName(int slot) const { return names_[static_cast<size_t>(slot)]; }
  int variableCount() const { return static_cast<int>(names_.size()); }
  const double* numberAddress(int slot) const { return &chunk(slot).numbers[slot & kChunkMask]; }
  const unsigned char* stateAddress(int slot) const { return &chunk(slot).states[slot & kChunkMask]; }
  std::uint64_t epoch() const { return epoch_; }
  void clearVariables();

  // Publishes the functions of a library as global names (later names win).
  void addFunctions(FunctionLibrary* library);
  // Registers a library under an object name; its functions are reached as
  // name.function.
  void addObject(const QString& name, FunctionLibrary* library);
  const Function& function(int index) const { return functions_[static_cast<size_t>(index)]; }
  // A function of an object, by name; nullptr when it has none.
  const FunctionDef* member(int object, QStringView name) const;
  FunctionLibrary* object(int index) const { return objects_[static_cast<size_t>(index)].library; }

 private:
  struct Entry {
    QString name;
    Kind kind;
    int index;
  };
  static std::uint32_t hashName(QStringView name);
  int findEntry(QStringView name, std::uint32_t hash) const;
  void insertEntry(const QString& name, Kind kind, int index);
  void rehash(size_t buckets);

  std::vector<Entry> entries_;
  std::vector<std::int32_t> buckets_;  // open addressing: entry number or -1

  std::vector<QString> names_;
  mutable std::vector<rt::Variant> values_;
  // Numbers and states in fixed chunks, so that their addresses survive growth.
  static constexpr int kChunkBits = 8;
  static constexpr int kChunkMask = (1 << kChunkBits) - 1;
  struct Chunk {
    double numbers[1 << kChunkBits];
    unsigned char states[1 << kChunkBits];
  };
  Chunk& chunk(int slot) const { return *chunks_[static_cast<size_t>(slot >> kChunkBits)]; }
  unsigned char& state(int slot) const { return chunk(slot).states[slot & kChunkMask]; }
  double& number(int slot) const { return chunk(slot).numbers[slot & kChunkMask]; }
  std::vector<std::unique_ptr<Chunk>> chunks_;
  std::uint64_t epoch_ = 0;

  std::vector<Function> functions_;
  struct Object {
    QString name;
    FunctionLibrary* library;
  };
  std::vector<Object> objects_;
};
