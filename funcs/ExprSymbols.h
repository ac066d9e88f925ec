#pragma once
// The names an Evaluator knows: its variables (the namespace that persists
// between calls), the functions callable as global names, and the objects
// published with AddObject. All lookups ignore case.
//
// Variables live in slots that are never removed, so a compiled expression
// can refer to them by number. A slot exists as soon as a formula names the
// variable; it is "defined" from its first assignment on. Beside each value
// the slot keeps its number as a double and whether it is a plain number
// (16-bit, 32-bit or 64-bit), which is what the fast path reads.
#include <QString>
#include <QStringView>
#include <cstdint>
#include <vector>

#include "funcs/FunctionLibrary.h"
#include "shell/Variant.h"

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

  // Slot states as the fast path reads them.
  enum SlotState : unsigned char { kPlainNumber = 0, kOtherValue = 1, kUndefined = 2 };

  Lookup find(QStringView name) const;

  // The slot of a variable, created (undefined) when missing. Returns -1 when
  // the name belongs to a function or an object.
  int variableSlot(QStringView name);
  void assign(int slot, const rt::Variant& value);
  void assignNumber(int slot, double value);
  bool isDefined(int slot) const { return states_[static_cast<size_t>(slot)] != kUndefined; }
  const rt::Variant& value(int slot) const { return values_[static_cast<size_t>(slot)]; }
  const QString& variableName(int slot) const { return names_[static_cast<size_t>(slot)]; }
  int variableCount() const { return static_cast<int>(names_.size()); }
  const double* numbers() const { return numbers_.data(); }
  const unsigned char* states() const { return states_.data(); }
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
  std::vector<rt::Variant> values_;
  std::vector<double> numbers_;
  std::vector<unsigned char> states_;

  std::vector<Function> functions_;
  struct Object {
    QString name;
    FunctionLibrary* library;
  };
  std::vector<Object> objects_;
};
