#include "calc/MatrixAlgebra.h"

#include <algorithm>
#include <utility>

#include "shell/runtime/RuntimeError.h"

namespace {

void swapRows(Matrix& a, int r1, int r2, int fromColumn) {
  for (int c = fromColumn; c < a.cols; ++c) std::swap(a.at(r1, c), a.at(r2, c));
}

// The first row from `from` downward with a non-zero entry in column c, or -1.
int nonZeroBelow(const Matrix& a, int from, int c) {
  for (int r = from; r < a.rows; ++r) {
    if (a.at(r, c) != 0) return r;
  }
  return -1;
}

// Gauss-Jordan on the left n x n block of a, carried over all its columns.
// False when a column has no pivot.
bool reduceToIdentity(Matrix& a) {
  const int n = a.rows;
  for (int i = 0; i < n; ++i) {
    if (a.at(i, i) == 0) {
      const int r = nonZeroBelow(a, i + 1, i);
      if (r < 0) return false;
      swapRows(a, i, r, 0);
    }
    const double pivot = a.at(i, i);
    for (int c = 0; c < a.cols; ++c) a.at(i, c) /= pivot;
    for (int r = 0; r < n; ++r) {
      if (r == i) continue;
      const double f = a.at(r, i);
      for (int c = 0; c < a.cols; ++c) a.at(r, c) -= f * a.at(i, c);
    }
  }
  return true;
}

Matrix minorOf(const Matrix& a, int row, int col) {
  Matrix m(a.rows - 1, a.cols - 1);
  for (int r = 0, mr = 0; r < a.rows; ++r) {
    if (r == row) continue;
    for (int c = 0, mc = 0; c < a.cols; ++c) {
      if (c == col) continue;
      m.at(mr, mc++) = a.at(r, c);
    }
    ++mr;
  }
  return m;
}

}  // namespace

Matrix Matrix::identity(int n) {
  Matrix m(n, n);
  for (int i = 0; i < n; ++i) m.at(i, i) = 1;
  return m;
}

namespace matrix {

Matrix sum(const Matrix& a, const Matrix& b, int sign) {
  Matrix c(a.rows, a.cols);
  for (std::size_t i = 0; i < c.cells.size(); ++i) c.cells[i] = sign > 0 ? a.cells[i] + b.cells[i] : a.cells[i] - b.cells[i];
  return c;
}

Matrix product(const Matrix& a, const Matrix& b) {
  Matrix c(a.rows, b.cols);
  for (int i = 0; i < a.rows; ++i) {
    for (int j = 0; j < b.cols; ++j) {
      double s = 0;
      for (int k = 0; k < a.cols; ++k) s += a.at(i, k) * b.at(k, j);
      c.at(i, j) = s;
    }
  }
  return c;
}

Matrix scaled(const Matrix& a, double factor) {
  Matrix c = a;
  for (double& v : c.cells) v *= factor;
  return c;
}

Matrix opposite(const Matrix& a) {
  Matrix c = a;
  for (double& v : c.cells) v = -v;
  return c;
}

Matrix transpose(const Matrix& a) {
  Matrix c(a.cols, a.rows);
  for (int i = 0; i < a.rows; ++i) {
    for (int j = 0; j < a.cols; ++j) c.at(j, i) = a.at(i, j);
  }
  return c;
}

double determinant(Matrix a) {
  const int n = a.rows;
  if (n == 1) return a.at(0, 0);
  int exchanges = 0;
  for (int i = 0; i < n - 1; ++i) {
    if (a.at(i, i) == 0) {
      const int r = nonZeroBelow(a, i + 1, i);
      if (r < 0) return 0;
      swapRows(a, i, r, i);
      ++exchanges;
    }
    for (int j = i + 1; j < n; ++j) {
      const double m = a.at(j, i) / a.at(i, i);
      for (int k = i; k < n; ++k) a.at(j, k) -= m * a.at(i, k);
    }
  }
  double d = exchanges % 2 == 0 ? 1.0 : -1.0;
  for (int i = 0; i < n; ++i) d *= a.at(i, i);
  return d;
}

bool inverseGaussJordan(const Matrix& a, Matrix& inverse) {
  const int n = a.rows;
  if (n == 1) {
    if (a.at(0, 0) == 0) throw rt::RuntimeError(rt::kDivisionByZero);
    inverse = Matrix(1, 1);
    inverse.at(0, 0) = 1 / a.at(0, 0);
    return true;
  }
  Matrix work(n, 2 * n);
  for (int r = 0; r < n; ++r) {
    for (int c = 0; c < n; ++c) work.at(r, c) = a.at(r, c);
    work.at(r, n + r) = 1;
  }
  if (!reduceToIdentity(work)) return false;
  inverse = Matrix(n, n);
  for (int r = 0; r < n; ++r) {
    for (int c = 0; c < n; ++c) inverse.at(r, c) = work.at(r, n + c);
  }
  return true;
}

bool inverseAdjoint(const Matrix& a, Matrix& inverse) {
  const int n = a.rows;
  const double d = determinant(a);
  if (d == 0) return false;
  inverse = Matrix(n, n);
  if (n == 1) {
    inverse.at(0, 0) = 1 / d;
    return true;
  }
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const double cofactor = ((i + j) % 2 == 0 ? 1.0 : -1.0) * determinant(minorOf(a, i, j));
      inverse.at(j, i) = cofactor / d;
    }
  }
  return true;
}

int rank(Matrix a, std::vector<int>* dependentRows) {
  std::vector<int> origin(static_cast<std::size_t>(a.rows));
  for (int r = 0; r < a.rows; ++r) origin[static_cast<std::size_t>(r)] = r + 1;
  const int steps = a.rows < a.cols ? a.rows : a.cols;
  for (int k = 0; k < steps; ++k) {
    int pr = -1, pc = -1;
    for (int r = k; r < a.rows && pr < 0; ++r) {
      for (int c = k; c < a.cols; ++c) {
        if (a.at(r, c) != 0) {
          pr = r;
          pc = c;
          break;
        }
      }
    }
    if (pr < 0) break;
    if (pr != k) {
      swapRows(a, k, pr, 0);
      std::swap(origin[static_cast<std::size_t>(k)], origin[static_cast<std::size_t>(pr)]);
    }
    if (pc != k) {
      for (int r = 0; r < a.rows; ++r) std::swap(a.at(r, k), a.at(r, pc));
    }
    for (int j = k + 1; j < a.rows; ++j) {
      const double m = a.at(j, k) / a.at(k, k);
      for (int c = k; c < a.cols; ++c) a.at(j, c) -= m * a.at(k, c);
    }
  }
  int count = 0;
  if (dependentRows) dependentRows->clear();
  for (int r = 0; r < a.rows; ++r) {
    bool zero = true;
    for (int c = 0; c < a.cols && zero; ++c) zero = a.at(r, c) == 0;
    if (!zero) ++count;
    else if (dependentRows) dependentRows->push_back(origin[static_cast<std::size_t>(r)]);
  }
  if (dependentRows) std::sort(dependentRows->begin(), dependentRows->end());
  return count;
}

bool solve(Matrix augmented, std::vector<double>& x) {
  if (!reduceToIdentity(augmented)) return false;
  x.assign(static_cast<std::size_t>(augmented.rows), 0.0);
  for (int r = 0; r < augmented.rows; ++r) x[static_cast<std::size_t>(r)] = augmented.at(r, augmented.cols - 1);
  return true;
}

}  // namespace matrix
