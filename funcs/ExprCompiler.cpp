#include "funcs/ExprCompiler.h"

#include <algorithm>

#include "funcs/EvalError.h"
#include "funcs/ExprMachine.h"

namespace {

constexpr std::uint32_t kConstSpace = 0u << 30;
constexpr std::uint32_t kVarSpace = 1u << 30;
constexpr std::uint32_t kTempSpace = 2u << 30;
constexpr std::uint32_t kSpaceMask = 3u << 30;
constexpr std::uint32_t kIndexMask = ~kSpaceMask;

// Binding strength of the binary operators; 0 for anything else.
int precedence(Tok t) {
  switch (t) {
    case Tok::Imp: return 1;
    case Tok::Eqv: return 2;
    case Tok::Xor: return 3;
    case Tok::Or: return 4;
    case Tok::And: return 5;
    // 6 is Not, a prefix operator
    case Tok::Eq:
    case Tok::Ne:
    case Tok::Lt:
    case Tok::Gt:
    case Tok::Le:
    case Tok::Ge:
    case Tok::Is: return 7;
    case Tok::Amp: return 8;
    case Tok::Plus:
    case Tok::Minus: return 9;
    case Tok::Mod: return 10;
    case Tok::Backslash: return 11;
    case Tok::Star:
    case Tok::Slash: return 12;
    case Tok::Caret: return 13;
    default: return 0;
  }
}
constexpr int kComparisonPrecedence = 7;

Op binaryOp(Tok t) {
  switch (t) {
    case Tok::Imp: return Op::Imp;
    case Tok::Eqv: return Op::Eqv;
    case Tok::Xor: return Op::Xor;
    case Tok::Or: return Op::Or;
    case Tok::And: return Op::And;
    case Tok::Eq: return Op::Eq;
    case Tok::Ne: return Op::Ne;
    case Tok::Lt: return Op::Lt;
    case Tok::Gt: return Op::Gt;
    case Tok::Le: return Op::Le;
    case Tok::Ge: return Op::Ge;
    case Tok::Is: return Op::Is;
    case Tok::Amp: return Op::Concat;
    case Tok::Plus: return Op::Add;
    case Tok::Minus: return Op::Sub;
    case Tok::Mod: return Op::Mod;
    case Tok::Backslash: return Op::IntDiv;
    case Tok::Star: return Op::Mul;
    case Tok::Slash: return Op::Div;
    default: return Op::Pow;
  }
}

// Counts nesting on the way down and refuses to go past the limit.
class DepthGuard {
 public:
  DepthGuard(int& depth, int limit, int pos) : depth_(depth) {
    if (++depth_ > limit) {
      --depth_;
      throw EvalError(EvalError::kExpressionTooComplex, {}, pos);
    }
  }
  ~DepthGuard() { --depth_; }
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;

 private:
  int& depth_;
};

}  // namespace

void ExprCompiler::start(QStringView text) {
  lexer_ = std::make_unique<ExprLexer>(text);
  depth_ = 0;
  advance();
}

void ExprCompiler::fail(int number, const QString& detail) const { throw EvalError(number, detail, tok_.pos); }

ExprProgram ExprCompiler::compileExpression(const QString& text) {
  start(text);
  prog_ = ExprProgram();
  tempTop_ = 0;
  if (tok_.type == Tok::End) fail(EvalError::kExpectedExpression);
  const Operand result = parseExpression(1);
  if (tok_.type != Tok::End) fail(EvalError::kExpectedEndOfStatement);
  finish(result);
  return std::move(prog_);
}

std::vector<ExprStatement> ExprCompiler::compileStatements(const QString& text) {
  start(text);
  std::vector<ExprStatement> out;
  for (;;) {
    while (tok_.type == Tok::EndOfStatement) advance();
    if (tok_.type == Tok::End) break;
    if (tok_.type != Tok::Name) fail(EvalError::kExpectedIdentifier);
    const QStringView name = lexer_->text().mid(tok_.pos, tok_.length);
    const int slot = symbols_.variableSlot(name);
    if (slot < 0) fail(EvalError::kIllegalAssignment, name.toString());
    advance();
    if (tok_.type != Tok::Eq) fail(EvalError::kExpectedEquals);
    advance();
    prog_ = ExprProgram();
    tempTop_ = 0;
    const Operand value = parseExpression(1);
    if (tok_.type != Tok::End && tok_.type != Tok::EndOfStatement) fail(EvalError::kExpectedEndOfStatement);
    finish(value);
    out.push_back({slot, std::move(prog_)});
  }
  return out;
}

ExprCompiler::Operand ExprCompiler::parseExpression(int minPrecedence) {
  DepthGuard guard(depth_, kMaxDepth, tok_.pos);
  Operand left = parseOperand();
  for (;;) {
    const int p = precedence(tok_.type);
    if (p == 0 || p < minPrecedence) return left;
    const Op op = binaryOp(tok_.type);
    advance();
    const Operand right = parseExpression(p + 1);
    left = emitBinary(op, left, right);
  }
}

ExprCompiler::Operand ExprCompiler::parseOperand() {
  DepthGuard guard(depth_, kMaxDepth, tok_.pos);
  switch (tok_.type) {
    case Tok::Minus: {
      advance();
      return emitUnary(Op::Neg, parseOperand());
    }
    case Tok::Plus:
      advance();
      return parseOperand();
    case Tok::Not: {
      // Not takes in the comparisons and everything tighter: "Not a = b" is Not (a = b).
      advance();
      return emitUnary(Op::Not, parseExpression(kComparisonPrecedence));
    }
    case Tok::Number:
    case Tok::Text:
    case Tok::True:
    case Tok::False: {
      const Operand c = constant(tok_.value);
      advance();
      return c;
    }
    case Tok::LParen: {
      advance();
      const Operand inner = parseExpression(1);
      if (tok_.type != Tok::RParen) fail(EvalError::kExpectedCloseParen);
      advance();
      return inner;
    }
    case Tok::Name: return parseName();
    default: fail(EvalError::kExpectedExpression);
  }
}

ExprCompiler::Operand ExprCompiler::parseName() {
  const QString name = lexer_->text().mid(tok_.pos, tok_.length).toString();
  const ExprSymbols::Lookup found = symbols_.find(name);
  advance();
  if (tok_.type == Tok::Dot) {
    if (found.kind != ExprSymbols::Kind::Object) fail(EvalError::kObjectRequired, name);
    advance();
    if (tok_.type != Tok::Name) fail(EvalError::kExpectedIdentifier);
    const QString member = lexer_->text().mid(tok_.pos, tok_.length).toString();
    const FunctionDef* def = symbols_.member(found.index, member);
    if (!def) fail(EvalError::kObjectMember, name + QLatin1Char('.') + member);
    advance();
    return parseCall(def, symbols_.object(found.index), member);
  }
  switch (found.kind) {
    case ExprSymbols::Kind::Function: {
      const ExprSymbols::Function& f = symbols_.function(found.index);
      return parseCall(f.def, f.library, name);
    }
    case ExprSymbols::Kind::Object: fail(EvalError::kObjectMember, name);
    default: break;
  }
  if (tok_.type == Tok::LParen) fail(EvalError::kUnknownFunction, name);
  return variable(symbols_.variableSlot(name));
}

ExprCompiler::Operand ExprCompiler::parseCall(const FunctionDef* def, FunctionLibrary* library,
                                              const QString& name) {
  std::vector<Operand> args;
  if (tok_.type == Tok::LParen) {
    advance();
    if (tok_.type != Tok::RParen) {
      for (;;) {
        args.push_back(parseExpression(1));
        if (tok_.type != Tok::Comma) break;
        advance();
      }
    }
    if (tok_.type != Tok::RParen) fail(EvalError::kExpectedCloseParen);
    advance();
  }
  const int n = static_cast<int>(args.size());
  if (n < def->minArgs || (def->maxArgs >= 0 && n > def->maxArgs)) fail(EvalError::kWrongArgumentCount, name);
  return emitCall(def, library, args);
}

ExprCompiler::Operand ExprCompiler::constant(const rt::Variant& v) {
  const auto index = static_cast<std::uint32_t>(prog_.constants.size());
  prog_.constants.push_back(v);
  Kind kind = Kind::Num;
  if (v.type() == rt::VType::Boolean) kind = Kind::Bool;
  else if (!v.isNumeric()) kind = Kind::Other;
  prog_.numbers.push_back(kind == Kind::Other ? 0.0 : v.rawNumber());
  return {kConstSpace | index, kind};
}

ExprCompiler::Operand ExprCompiler::variable(int slot) {
  for (size_t i = 0; i < prog_.variables.size(); ++i) {
    if (prog_.variables[i] == slot) return {kVarSpace | static_cast<std::uint32_t>(i), Kind::Num};
  }
  prog_.variables.push_back(slot);
  return {kVarSpace | static_cast<std::uint32_t>(prog_.variables.size() - 1), Kind::Num};
}

void ExprCompiler::release(Operand x) {
  if ((x.ref & kSpaceMask) == kTempSpace) --tempTop_;
}

ExprCompiler::Operand ExprCompiler::allocTemp(Kind kind) {
  const std::uint32_t t = tempTop_++;
  if (tempTop_ > prog_.temps) prog_.temps = tempTop_;
  return {kTempSpace | t, kind};
}

ExprCompiler::Operand ExprCompiler::emitUnary(Op op, Operand x) {
  // A negated number literal is a constant of its own: the literal's type
  // decides the result's, and negating a literal cannot fail.
  if (op == Op::Neg && (x.ref & kSpaceMask) == kConstSpace && x.kind == Kind::Num &&
      (x.ref & kIndexMask) == prog_.constants.size() - 1) {
    rt::Variant& c = prog_.constants.back();
    c = -c;
    prog_.numbers.back() = c.rawNumber();
    return x;
  }
  if (x.kind == Kind::Other) prog_.fast = false;
  release(x);
  const Operand d = allocTemp(x.kind == Kind::Other ? Kind::Other : (op == Op::Not ? x.kind : Kind::Num));
  prog_.code.push_back({op, d.ref, x.ref, 0, 0});
  return d;
}

ExprCompiler::Operand ExprCompiler::emitBinary(Op op, Operand l, Operand r) {
  Kind kind = Kind::Num;
  const bool other = l.kind == Kind::Other || r.kind == Kind::Other;
  switch (op) {
    case Op::Eq:
    case Op::Ne:
    case Op::Lt:
    case Op::Gt:
    case Op::Le:
    case Op::Ge: kind = Kind::Bool; break;
    case Op::And:
    case Op::Or:
    case Op::Xor:
    case Op::Eqv:
    case Op::Imp: kind = (l.kind == Kind::Bool && r.kind == Kind::Bool) ? Kind::Bool : Kind::Num; break;
    case Op::Concat:
    case Op::Is: kind = Kind::Other; break;
    default: kind = Kind::Num; break;
  }
  if (other) kind = (kind == Kind::Bool) ? Kind::Bool : Kind::Other;
  if (other || kind == Kind::Other) prog_.fast = false;
  if (op == Op::Pow && (r.ref & kSpaceMask) == kConstSpace && r.kind == Kind::Num &&
      prog_.numbers[r.ref & kIndexMask] == 2) {
    op = Op::Square;
  }
  release(r);
  release(l);
  const Operand d = allocTemp(kind);
  prog_.code.push_back({op, d.ref, l.ref, r.ref, 0});
  return d;
}

ExprCompiler::Operand ExprCompiler::emitCall(const FunctionDef* def, FunctionLibrary* library,
                                             const std::vector<Operand>& args) {
  const auto fn = static_cast<std::uint32_t>(prog_.calls.size());
  prog_.calls.push_back({def, library, def->f0, def->f1, def->f2, def->fn});
  const size_t n = args.size();
  bool otherArgs = false;
  for (const Operand& a : args) otherArgs = otherArgs || a.kind == Kind::Other;
  Op op = Op::CallN;
  if (n == 0 && def->f0) op = Op::Call0;
  else if (n == 1 && def->f1) op = Op::Call1;
  else if (n == 2 && def->f2) op = Op::Call2;
  const bool numeric = op != Op::CallN || def->fn != nullptr;
  const Kind kind = def->result == ResultKind::Number ? Kind::Num : Kind::Other;
  if (otherArgs || !numeric || kind == Kind::Other) prog_.fast = false;

  Instr ins{op, 0, 0, 0, fn};
  if (op == Op::Call1 || op == Op::Call2) {
    ins.a = args[0].ref;
    if (n == 2) ins.b = args[1].ref;
  } else if (op == Op::CallN) {
    ins.a = static_cast<std::uint32_t>(prog_.args.size());
    ins.b = static_cast<std::uint32_t>(n);
    for (const Operand& a : args) prog_.args.push_back(a.ref);
  }
  for (size_t i = n; i-- > 0;) release(args[i]);
  const Operand d = allocTemp(kind);
  ins.dst = d.ref;
  prog_.code.push_back(ins);
  return d;
}

void ExprCompiler::finish(Operand result) {
  // Lay out the frame now that the counts are known: constants, variables, temporaries.
  const auto vars = static_cast<std::uint32_t>(prog_.constants.size());
  const auto temps = vars + static_cast<std::uint32_t>(prog_.variables.size());
  auto place = [&](std::uint32_t ref) {
    const std::uint32_t index = ref & kIndexMask;
    switch (ref & kSpaceMask) {
      case kConstSpace: return index;
      case kVarSpace: return vars + index;
      default: return temps + index;
    }
  };
  for (Instr& ins : prog_.code) {
    ins.dst = place(ins.dst);
    if (ins.op == Op::CallN || ins.op == Op::Call0) continue;
    ins.a = place(ins.a);
    if (ins.op != Op::Neg && ins.op != Op::Not && ins.op != Op::Call1) ins.b = place(ins.b);
  }
  for (std::uint32_t& a : prog_.args) a = place(a);
  prog_.result = place(result.ref);
  prog_.resultIsBoolean = result.kind == Kind::Bool;
  if (result.kind == Kind::Other) prog_.fast = false;
  prog_.frame.assign(prog_.frameSize(), 0.0);
  std::copy(prog_.numbers.begin(), prog_.numbers.end(), prog_.frame.begin());
  if (prog_.fast) bindFastCode();
}

namespace {

// The fast form of an operation on numbers; Concat and Is never run there.
FastOp fastOp(Op op) {
  switch (op) {
    case Op::Add: return FastOp::Add;
    case Op::Sub: return FastOp::Sub;
    case Op::Mul: return FastOp::Mul;
    case Op::Div: return FastOp::Div;
    case Op::Pow: return FastOp::Pow;
    case Op::Square: return FastOp::Square;
    case Op::IntDiv: return FastOp::IntDiv;
    case Op::Mod: return FastOp::Mod;
    case Op::Eq: return FastOp::Eq;
    case Op::Ne: return FastOp::Ne;
    case Op::Lt: return FastOp::Lt;
    case Op::Gt: return FastOp::Gt;
    case Op::Le: return FastOp::Le;
    case Op::Ge: return FastOp::Ge;
    case Op::And: return FastOp::And;
    case Op::Or: return FastOp::Or;
    case Op::Xor: return FastOp::Xor;
    case Op::Eqv: return FastOp::Eqv;
    case Op::Imp: return FastOp::Imp;
    case Op::Neg: return FastOp::Neg;
    case Op::Not: return FastOp::Not;
    case Op::Call0: return FastOp::Call0;
    case Op::Call1: return FastOp::Call1;
    case Op::Call2: return FastOp::Call2;
    default: return FastOp::CallN;
  }
}

FastOp inlineOp(InlineMath m) {
  switch (m) {
    case InlineMath::Sin: return FastOp::Sin;
    case InlineMath::Cos: return FastOp::Cos;
    case InlineMath::Tan: return FastOp::Tan;
    case InlineMath::Atn: return FastOp::Atn;
    case InlineMath::Exp: return FastOp::Exp;
    case InlineMath::Log: return FastOp::Log;
    case InlineMath::Sqr: return FastOp::Sqr;
    default: return FastOp::Abs;
  }
}

// The form with the constant in the instruction, when one operand is a
// constant: a op k for any of the five, k op a for the two that do not
// commute (k + a and k * a are a + k and a * k, to the last bit). False when
// the operation has no such form.
bool constantForm(Op op, bool constantFirst, FastOp& out) {
  switch (op) {
    case Op::Add: out = FastOp::AddK; return true;
    case Op::Mul: out = FastOp::MulK; return true;
    case Op::Sub: out = constantFirst ? FastOp::KSub : FastOp::SubK; return true;
    case Op::Div: out = constantFirst ? FastOp::KDiv : FastOp::DivK; return true;
    case Op::Pow:
      if (constantFirst) return false;
      out = FastOp::PowK;
      return true;
    default: return false;
  }
}

}  // namespace

void ExprCompiler::bindFastCode() {
  ExprProgram& p = prog_;
  const std::uint32_t vbase = p.variableBase();
  const std::uint32_t tbase = p.tempBase();
  auto address = [&](std::uint32_t i) -> double* {
    if (i >= vbase && i < tbase) return const_cast<double*>(symbols_.numberAddress(p.variables[i - vbase]));
    return &p.frame[i];
  };
  for (int slot : p.variables) p.variableStates.push_back(symbols_.stateAddress(slot));
  p.fastArgs.reserve(p.args.size());
  for (std::uint32_t a : p.args) p.fastArgs.push_back(address(a));
  p.fastCode.reserve(p.code.size());
  for (const Instr& ins : p.code) {
    FastInstr f{fastOp(ins.op), 0, 0, address(ins.dst), nullptr, nullptr, 0.0, nullptr, nullptr, nullptr};
    const ExprProgram::Call* call = ins.op >= Op::Call0 ? &p.calls[ins.fn] : nullptr;
    if (call) f.library = call->library;
    // The function pointers are stored type-erased and cast back by op.
    switch (ins.op) {
      case Op::Call0: f.function = reinterpret_cast<void (*)()>(call->f0); break;
      case Op::Call1:
        f.function = reinterpret_cast<void (*)()>(call->f1);
        f.a = address(ins.a);
        if (call->def->inlineMath != InlineMath::None) f.op = inlineOp(call->def->inlineMath);
        break;
      case Op::Call2:
        f.function = reinterpret_cast<void (*)()>(call->f2);
        f.a = address(ins.a);
        f.b = address(ins.b);
        break;
      case Op::CallN:
        f.function = reinterpret_cast<void (*)()>(call->fn);
        f.count = ins.b;
        f.args = p.fastArgs.data() + ins.a;
        break;
      case Op::Neg:
      case Op::Not: f.a = address(ins.a); break;
      default: {
        f.a = address(ins.a);
        f.b = address(ins.b);
        // One operand a constant (never both: the other is then a variable
        // or a temporary): it goes into the instruction.
        const bool aConst = ins.a < vbase, bConst = ins.b < vbase;
        FastOp k;
        if (aConst != bConst && constantForm(ins.op, aConst, k)) {
          f.op = k;
          f.k = p.frame[aConst ? ins.a : ins.b];
          if (aConst) f.a = f.b;
          f.b = nullptr;
        }
        break;
      }
    }
    if (!p.fastCode.empty() && ins.op != Op::Call0 && ins.op != Op::CallN) {
      const double* previous = p.fastCode.back().dst;
      if (f.a == previous) f.fromPrevious |= 1;
      if (f.b == previous && f.b != nullptr) f.fromPrevious |= 2;
    }
    p.fastCode.push_back(f);
  }
  p.fastResult = address(p.result);
  bindFastTree(p);
}
