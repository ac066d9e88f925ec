#pragma once
// Turns the text of a formula (for Eval) or of a run of "name = value"
// statements (for AddCode) into ExprPrograms, in one pass and without a
// syntax tree: the parser emits three-address code as it goes, placing
// intermediate values in temporaries that are reused like a stack.
//
// Precedence, highest first: unary "-" and "+", "^", "*" and "/", "\",
// "Mod", "+" and "-", "&", the comparisons, "Not", "And", "Or", "Xor",
// "Eqv", "Imp". Operators of one level associate to the left, "^" included,
// so "-2^2" is 4 and "2^3^2" is 64. Nesting deeper than kMaxDepth is refused
// with "expression too complex" instead of exhausting the stack.
#include <QString>
#include <vector>

#include "funcs/ExprLexer.h"
#include "funcs/ExprProgram.h"
#include "funcs/ExprSymbols.h"

class ExprCompiler {
 public:
  static constexpr int kMaxDepth = 400;

  explicit ExprCompiler(ExprSymbols& symbols) : symbols_(symbols) {}

  // Throw EvalError on a syntax error, an unknown function or a wrong count
  // of arguments. Variables named in the text get slots in the symbols.
  ExprProgram compileExpression(const QString& text);
  std::vector<ExprStatement> compileStatements(const QString& text);

 private:
  enum class Kind : unsigned char { Num, Bool, Other };
  struct Operand {
    std::uint32_t ref = 0;  // space in the two top bits, index below
    Kind kind = Kind::Num;
  };

  void start(QStringView text);
  void advance() { tok_ = lexer_->next(); }
  [[noreturn]] void fail(int number, const QString& detail = {}) const;

  Operand parseExpression(int minPrecedence);
  Operand parseOperand();
  Operand parseName();
  Operand parseCall(const FunctionDef* def, FunctionLibrary* library, const QString& name);

  Operand constant(const rt::Variant& v);
  Operand variable(int slot);
  Operand emitUnary(Op op, Operand x);
  Operand emitBinary(Op op, Operand l, Operand r);
  Operand emitCall(const FunctionDef* def, FunctionLibrary* library, const std::vector<Operand>& args);
  void release(Operand x);
  Operand allocTemp(Kind kind);
  void finish(Operand result);
  void bindFastCode();

  ExprSymbols& symbols_;
  std::unique_ptr<ExprLexer> lexer_;
  Token tok_;
  ExprProgram prog_;
  std::uint32_t tempTop_ = 0;
  int depth_ = 0;
};
