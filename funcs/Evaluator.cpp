#include "funcs/Evaluator.h"

#include "funcs/ExprCompiler.h"
#include "funcs/ExprLexer.h"
#include "funcs/ExprMachine.h"
#include "shell/RuntimeError.h"

namespace {

constexpr int kCacheSize = 256;  // compiled formulas kept; beyond, the cache starts afresh

bool isDigit(QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; }
bool isBlank(QChar c) { return c == u' ' || c == u'\t'; }
bool isSeparator(QChar c) { return c == u':' || c == u'\n' || c == u'\r'; }

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
}

void Evaluator::AddObject(const QString& name, FunctionLibrary* object, bool addMembers) {
  symbols_.addObject(name, object);
  if (addMembers) symbols_.addFunctions(object);
  dropCompiled();  // names may have changed meaning
}

const ExprProgram& Evaluator::programFor(const QString& text) {
  if (lastProgram_ && text == lastText_) return *lastProgram_;
  auto it = cache_.constFind(text);
  if (it == cache_.cend()) {
    auto program = std::make_shared<const ExprProgram>(ExprCompiler(symbols_).compileExpression(text));
    if (cache_.size() >= kCacheSize) dropCompiled();
    it = cache_.insert(text, std::move(program));
  }
  lastText_ = text;
  lastProgram_ = it.value().get();
  return *lastProgram_;
}

rt::Variant Evaluator::Eval(const QString& text) { return run(programFor(text)); }

Evaluator::Expression Evaluator::compile(const QString& text) {
  programFor(text);
  return Expression(cache_.value(text));
}

rt::Variant Evaluator::evaluate(const Expression& expression) {
  if (!expression.program_) throw EvalError(EvalError::kExpectedExpression);
  // The caller's handle keeps the program alive during the run.
  return run(*expression.program_);
}

double Evaluator::evaluateNumber(const Expression& expression) {
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
    if (running_ == 1) retired_.clear();
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
  struct Pending {
    int slot;
    rt::Variant value;
  };
  constexpr int kMax = 12;
  Pending pending[kMax];
  int count = 0;
  const QStringView t(text);
  const int n = static_cast<int>(t.size());
  int i = 0;
  auto skipBlanks = [&] {
    while (i < n && isBlank(t[i])) ++i;
  };
  for (;;) {
    skipBlanks();
    if (i >= n) break;
    if (isSeparator(t[i])) {
      ++i;
      continue;
    }
    if (!isNameStart(t[i]) || count == kMax) return false;
    const int start = i++;
    while (i < n && isNamePart(t[i])) ++i;
    const QStringView name = t.mid(start, i - start);
    skipBlanks();
    if (i >= n || t[i] != u'=') return false;
    ++i;
    skipBlanks();
    bool negative = false;
    if (i < n && (t[i] == u'-' || t[i] == u'+')) {
      negative = t[i] == u'-';
      ++i;
      skipBlanks();
    }
    if (i >= n || !(isDigit(t[i]) || (t[i] == u'.' && i + 1 < n && isDigit(t[i + 1])))) return false;
    rt::Variant value;
    int end = i;
    if (scanNumber(t, i, end, value) != 0) return false;
    i = end;
    skipBlanks();
    if (i < n && !isSeparator(t[i])) return false;
    // Anything but a plain variable name is left to the compiler, which
    // reports the keyword or function that cannot be assigned.
    const ExprSymbols::Lookup found = symbols_.find(name);
    if (found.kind == ExprSymbols::Kind::Function || found.kind == ExprSymbols::Kind::Object) return false;
    if (keywordOf(name) != Tok::Name) return false;
    const int slot = found.kind == ExprSymbols::Kind::Variable ? found.index : symbols_.variableSlot(name);
    pending[count].slot = slot;
    pending[count].value = negative ? -value : value;
    ++count;
  }
  for (int k = 0; k < count; ++k) symbols_.assign(pending[k].slot, pending[k].value);
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
