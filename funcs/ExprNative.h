#pragma once
// The fast tree as machine code, on x86-64 Linux: the nodes' operations in
// the nodes' order, the arithmetic in place, everything else (divisions,
// powers, comparisons, the library) through the same routines the tree
// calls, so that values, failures and messages are the tree's to the bit.
// Failures thrown inside it pass through it: its frame is described to the
// unwinder. Elsewhere, or where the system refuses executable memory, there
// is none and the tree runs.
#include <memory>

#include "funcs/ExprProgram.h"

struct NativeCode {
  double (*run)() = nullptr;
  std::shared_ptr<const void> memory;  // the code and its frame description, freed with the last program holding it
};

// Code for the tree under root (nodes of one program's fastTree), or none.
NativeCode buildNativeCode(const FastNode& root);
