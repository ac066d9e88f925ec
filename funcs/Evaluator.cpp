#include "funcs/Evaluator.h"

#include <algorithm>

#include "funcs/ExprCompiler.h"
#include "funcs/ExprLexer.h"
#include "funcs/ExprMachine.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/VectorState.h"

namespace {

constexpr int kCacheSize = 256;  // compiled formulas kept; beyond, the cache starts afresh

bool isDigit(QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; }
bool isBlank(QChar c) { return c == u' ' || c == u'\t'; }
bool isSeparator(QChar c) { return c == u':' || c == u'\n' || c == u'\r'; }

// The texts of the constants are short: a plain loop beats a library call.
bool samePrefix(const char16_t* a, const char16_t* b, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    if (a[i] != b[i]) return false;
  }
  return true;
}

// Counts the runs in progress, so that compiled programs are not freed under
// a run (a domain-failure message box runs inside Eval and keeps events going).
class RunGuard {
 public:
  explicit RunGuard(int& depth) : depth_(depth) { ++depth_; }
  ~RunGuard() { --depth_; }
  RunGuard(const RunGuard&) = delete;
  RunGuard& operator=(const RunGuard&) = delete;

 private:
  int& depth_;
};

}  // namespace

Evaluator::Evaluator() { symbols_.addFunctions(&language_); }

void Evaluator::dropCompiled() {
  // Programs may be running further up the stack: keep them alive until the
  // outermost run ends.
  if (running_ > 0) {
    for (auto it = cache_.cbegin(); it != cache_.cend(); ++it) retired_.push_back(it.value());
  }
  cache_.clear();
  lastText_.clear();
  lastProgram_ = nullptr;
  literals_.clear();
  literalText_.clear();
}

void Evaluator::AddObject(const QString& name, FunctionLibrary* object, bool addMembers) {
  symbols_.addObject(name, object);
  if (addMembers) symbols_.addFunctions(object);
  dropCompiled();  // names may have changed meaning
}

const ExprProgram& Evaluator::programFor(const QString& text) {
  // The same text again, often the very same string: no lookup at all.
  if (lastProgram_ && ((text.constData() == lastText_.constData() && text.size() == lastText_.size()) ||
                       text == lastText_)) {
    return *lastProgram_;
  }
  auto it = cache_.constFind(text);
  if (it == cache_.cend()) {
    auto program = std::make_shared<const ExprProgram>(ExprCompiler(symbols_).compileExpression(text));
    if (cache_.size() >= kCacheSize) dropCompiled();
    it = cache_.insert(text, std::move(program));
  }
  lastText_ = text;
  lastProgram_ = it.value().get();
  rt::clearUpperVectorState();  // the hash lookup may leave them in use; runs follow
  return *lastProgram_;
}

rt::Variant Evaluator::Eval(const QString& text) { return run(programFor(text)); }

Evaluator::Expression Evaluator::compile(const QString& text) {
  programFor(text);
  Expression compiled(cache_.value(text));
  rt::clearUpperVectorState();
  return compiled;
}

rt::Variant Evaluator::evaluate(const Expression& expression) {
  if (!expression.program_) throw EvalError(EvalError::kExpectedExpression);
  // The caller's handle keeps the program alive during the run.
  return run(*expression.program_);
}

void Evaluator::rethrowAsEvalError() {
  try {
    throw;
  } catch (const rt::RuntimeError& e) {
    throw EvalError(e);
  }
}

double Evaluator::evaluateNumberSlowly(const Expression& expression) {
  if (!expression.program_) throw EvalError(EvalError::kExpectedExpression);
  const ExprProgram& program = *expression.program_;
  // The caller's handle keeps the program alive: no run guard is needed.
  if (fastPath_ && program.fast) {
    double number = 0;
    bool done = false;
    try {
      done = runFast(program, symbols_, number);
    } catch (const rt::RuntimeError& e) {
      throw EvalError(e);
    }
    if (done) return number;
  }
  const rt::Variant value = run(program);
  try {
    return value.toDouble();
  } catch (const rt::RuntimeError& e) {
    throw EvalError(e);
  }
}

rt::Variant Evaluator::run(const ExprProgram& program) {
  RunGuard guard(running_);
  try {
    rt::Variant value;
    double number = 0;
    // A lone constant or variable comes back as it is, with its own type.
    if (fastPath_ && program.fast && !program.code.empty() && runFast(program, symbols_, number)) {
      value = program.resultIsBoolean ? rt::Variant::boolean(number != 0) : rt::Variant(number);
    } else {
      value = runExact(program, symbols_);
    }
    if (running_ == 1 && !retired_.empty()) retired_.clear();
    return value;
  } catch (const rt::RuntimeError& e) {
    if (running_ == 1) retired_.clear();
    throw EvalError(e);
  } catch (...) {
    if (running_ == 1) retired_.clear();
    throw;
  }
}

void Evaluator::AddCode(const QString& text) {
  if (assignLiterals(text)) return;
  // The whole text is compiled before anything runs, so a syntax error
  // assigns nothing; a run-time failure keeps the assignments before it.
  const std::vector<ExprStatement> statements = ExprCompiler(symbols_).compileStatements(text);
  RunGuard guard(running_);
  for (const ExprStatement& s : statements) {
    try {
      symbols_.assign(s.slot, runExact(s.value, symbols_));
    } catch (const rt::RuntimeError& e) {
      throw EvalError(e);
    }
  }
}

bool Evaluator::assignLiterals(const QString& text) {
  const QStringView t(text);
  const int n = static_cast<int>(t.size());
  // The statements that the previous text had, unchanged and in the same
  // place, are not read again: in a table only the x at the end changes.
  // Where only a number changed, its name is not looked up again either.
  if (!literals_.empty() && static_cast<size_t>(n) == literalText_.size() &&
      samePrefix(t.utf16(), literalText_.data(), literalText_.size())) {
    // The same text again (a table's constants before every x): the same values.
    for (const LiteralAssignment& a : literals_) symbols_.assignNumber(a.slot, a.value, a.type);
    return true;
  }
  size_t reused = 0;
  size_t kept = 0;  // length of the start that the new text shares with literalText_
  int i = 0;
  int knownSlot = -1;  // slot of the statement whose number starts at i, when known
  const LiteralAssignment* lastLiteral = literals_.empty() ? nullptr : &literals_.back();
  const auto lastStart = lastLiteral ? static_cast<size_t>(lastLiteral->valueStart) : 0;
  if (lastLiteral && static_cast<size_t>(n) >= lastStart && literalText_.size() >= lastStart &&
      samePrefix(t.utf16(), literalText_.data(), lastStart)) {
    // The usual case, everything before the last number unchanged: one
    // block comparison, and only that number is read again.
    reused = literals_.size() - 1;
    kept = lastStart;
    knownSlot = lastLiteral->slot;
    i = lastLiteral->valueStart;
  } else if (lastLiteral) {
    const size_t m = std::min(static_cast<size_t>(n), literalText_.size());
    const char16_t* a = t.utf16();
    const int common = static_cast<int>(std::mismatch(a, a + m, literalText_.data()).first - a);
    kept = static_cast<size_t>(common);
    while (reused < literals_.size() && literals_[reused].end < common) ++reused;
    if (common == n && static_cast<size_t>(n) == literalText_.size()) reused = literals_.size();
    if (reused > 0) i = literals_[reused - 1].end;
    if (reused < literals_.size() && literals_[reused].valueStart <= common) {
      knownSlot = literals_[reused].slot;
      i = literals_[reused].valueStart;
    }
  }
  literals_.resize(reused);
  auto giveUp = [this] {
    literals_.clear();
    literalText_.clear();
    return false;
  };
  auto skipBlanks = [&] {
    while (i < n && isBlank(t[i])) ++i;
  };
  for (;;) {
    int slot = knownSlot;
    knownSlot = -1;
    if (slot < 0) {
      skipBlanks();
      if (i >= n) break;
      if (isSeparator(t[i])) {
        ++i;
        continue;
      }
      if (!isNameStart(t[i])) return giveUp();
      const int start = i++;
      while (i < n && isNamePart(t[i])) ++i;
      const QStringView name = t.mid(start, i - start);
      skipBlanks();
      if (i >= n || t[i] != u'=') return giveUp();
      ++i;
      skipBlanks();
      // Anything but a plain variable name is left to the compiler, which
      // reports the keyword or function that cannot be assigned.
      const ExprSymbols::Lookup found = symbols_.find(name);
      if (found.kind == ExprSymbols::Kind::Function || found.kind == ExprSymbols::Kind::Object) return giveUp();
      if (keywordOf(name) != Tok::Name) return giveUp();
      slot = found.kind == ExprSymbols::Kind::Variable ? found.index : symbols_.variableSlot(name);
    }
    skipBlanks();
    const int valueStart = i;
    bool negative = false;
    if (i < n && (t[i] == u'-' || t[i] == u'+')) {
      negative = t[i] == u'-';
      ++i;
      skipBlanks();
    }
    if (i >= n || !(isDigit(t[i]) || (t[i] == u'.' && i + 1 < n && isDigit(t[i + 1])))) return giveUp();
    NumberLiteral literal;
    int end = i;
    if (scanNumber(t, i, end, literal) != 0) return giveUp();
    i = end;
    const int after = i;
    skipBlanks();
    if (i < n && !isSeparator(t[i])) return giveUp();
    // A negated literal keeps its type; an integer zero has no sign.
    double value = negative ? -literal.value : literal.value;
    ExprSymbols::SlotState type = ExprSymbols::kDoubleOnly;
    if (literal.type == rt::VType::Integer) type = ExprSymbols::kIntegerOnly;
    if (literal.type == rt::VType::Long) type = ExprSymbols::kLongOnly;
    if (type != ExprSymbols::kDoubleOnly && value == 0) value = 0;
    literals_.push_back({slot, valueStart, after, type, value});
  }
  for (const LiteralAssignment& a : literals_) symbols_.assignNumber(a.slot, a.value, a.type);
  // Only what differs from the text kept is copied: usually the last number.
  literalText_.resize(kept);
  literalText_.append(t.utf16() + kept, t.utf16() + n);
  return true;
}

int Evaluator::variableSlot(const QString& name) {
  if (name.isEmpty() || !isNameStart(name.at(0)) || keywordOf(name) != Tok::Name) {
    throw EvalError(EvalError::kExpectedIdentifier);
  }
  for (QChar c : name) {
    if (!isNamePart(c)) throw EvalError(EvalError::kExpectedIdentifier);
  }
  const int slot = symbols_.variableSlot(name);
  if (slot < 0) throw EvalError(EvalError::kIllegalAssignment, name);
  return slot;
}

void Evaluator::setVariable(int slot, const rt::Variant& value) { symbols_.assign(slot, value); }

rt::Variant Evaluator::variable(const QString& name) const {
  const ExprSymbols::Lookup found = symbols_.find(name);
  if (found.kind != ExprSymbols::Kind::Variable || !symbols_.isDefined(found.index)) return {};
  return symbols_.value(found.index);
}

bool Evaluator::isDefined(const QString& name) const {
  const ExprSymbols::Lookup found = symbols_.find(name);
  return found.kind == ExprSymbols::Kind::Variable && symbols_.isDefined(found.index);
}
