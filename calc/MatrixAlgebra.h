#pragma once
// The matrix arithmetic of the calculator's matrix panel and linear systems,
// on 64-bit floats. Elimination follows the panel's own rules: a pivot is
// replaced only when it is exactly 0, by the first row below with a non-zero
// entry in its column; there is no partial pivoting and no tolerance, so the
// answers are what the plain arithmetic gives (a nearly singular matrix shows
// its rounding residue, not 0).
#include <vector>

struct Matrix {
  int rows = 0;
  int cols = 0;
  std::vector<double> cells;  // row-major

  Matrix() = default;
  Matrix(int r, int c) : rows(r), cols(c), cells(static_cast<std::size_t>(r) * static_cast<std::size_t>(c), 0.0) {}
  static Matrix identity(int n);
  double& at(int r, int c) { return cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(c)]; }
  double at(int r, int c) const { return cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(c)]; }
  bool square() const { return rows == cols; }
  bool operator==(const Matrix& o) const = default;
};

namespace matrix {

// Sum (sign +1) or difference (sign -1) of two matrices of the same sizes.
Matrix sum(const Matrix& a, const Matrix& b, int sign);
// Row by column, each cell summed left to right over the inner index.
Matrix product(const Matrix& a, const Matrix& b);
Matrix scaled(const Matrix& a, double factor);
Matrix opposite(const Matrix& a);
Matrix transpose(const Matrix& a);

// Gaussian elimination by rows in n - 1 steps; (-1)^exchanges times the
// product of the diagonal. A matrix of order 1 is its own determinant.
double determinant(Matrix a);

// Gauss-Jordan on the matrix beside the identity. False when a column has no
// non-zero pivot (the matrix is singular). Order 1 is 1/a, which throws the
// runtime's division failure for [0].
bool inverseGaussJordan(const Matrix& a, Matrix& inverse);
// Cofactor of (i, j) divided by the determinant, placed at (j, i). False when
// the determinant is 0.
bool inverseAdjoint(const Matrix& a, Matrix& inverse);

// Rank by elimination with a pivot search over the remaining rows and
// columns (row and column exchanges); the rank is the count of non-zero rows
// left. dependentRows, when given, receives the 1-based numbers of the rows
// of the given matrix that reduced to all zeros.
int rank(Matrix a, std::vector<int>* dependentRows = nullptr);

// Solves A x = k for the n x (n + 1) matrix [A | k] by Gauss-Jordan with the
// same pivot rule. False when a column has no pivot.
bool solve(Matrix augmented, std::vector<double>& x);

}  // namespace matrix
