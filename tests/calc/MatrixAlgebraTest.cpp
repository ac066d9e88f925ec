// The matrix arithmetic: the elimination rules (exact zero pivots, downward
// search, no partial pivoting, a sign per exchange), both inverses, rank and
// dependent rows, and the systems, checked against an independent
// elimination in long double with partial pivoting.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "calc/MatrixAlgebra.h"
#include "shell/runtime/RuntimeError.h"

namespace {

Matrix make(int rows, int cols, std::initializer_list<double> values) {
  Matrix m(rows, cols);
  m.cells.assign(values);
  return m;
}

// A well-conditioned random matrix: entries in [-10, 10], a heavy diagonal.
Matrix randomMatrix(int n, int cols, unsigned seed) {
  std::mt19937 gen(seed);
  std::uniform_real_distribution<double> d(-10, 10);
  Matrix m(n, cols);
  for (double& v : m.cells) v = d(gen);
  for (int i = 0; i < n; ++i) m.at(i, i) += 10.0 * n;
  return m;
}

// The reference: Gaussian elimination in long double with partial pivoting,
// carried over extra columns (for the inverse and the systems).
struct Reference {
  long double det = 1;
  std::vector<std::vector<long double>> right;  // the extra columns after reduction
};

Reference reference(const Matrix& a, const Matrix& extra) {
  const int n = a.rows;
  const int m = extra.cols;
  std::vector<std::vector<long double>> w(static_cast<std::size_t>(n));
  for (int r = 0; r < n; ++r) {
    for (int c = 0; c < n; ++c) w[r].push_back(a.at(r, c));
    for (int c = 0; c < m; ++c) w[r].push_back(extra.at(r, c));
  }
  Reference out;
  for (int i = 0; i < n; ++i) {
    int best = i;
    for (int r = i + 1; r < n; ++r) {
      if (std::fabs(w[r][i]) > std::fabs(w[best][i])) best = r;
    }
    if (best != i) {
      std::swap(w[best], w[i]);
      out.det = -out.det;
    }
    out.det *= w[i][i];
    const long double p = w[i][i];
    for (auto& v : w[i]) v /= p;
    for (int r = 0; r < n; ++r) {
      if (r == i) continue;
      const long double f = w[r][i];
      for (int c = 0; c < n + m; ++c) w[r][c] -= f * w[i][c];
    }
  }
  for (int r = 0; r < n; ++r) out.right.emplace_back(w[r].begin() + n, w[r].end());
  return out;
}

void expectNear(double actual, long double expected, double relative) {
  const long double scale = std::max<long double>(1, std::fabs(expected));
  EXPECT_LE(std::fabs(actual - expected) / scale, relative) << actual << " vs " << static_cast<double>(expected);
}

}  // namespace

// ---- Determinant ----------------------------------------------------------------------

TEST(MatrixDeterminant, ShowsWhatThePlainArithmeticGives) {
  struct Row {
    const char* name;
    Matrix m;
    double det;
  } rows[] = {
      // Elimination happens to cancel exactly: 0 with no tolerance needed.
      {"oneToNine", make(3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9}), 0},
      // A singular matrix whose rounding residue survives: no tolerance hides it.
      {"residue", make(2, 2, {0.1, 0.3, 0.3, 0.9}), 0.1 * 0x1p-52},
      {"orderOne", make(1, 1, {-4.5}), -4.5},
      {"firstPivotZero", make(2, 2, {0, 1, 1, 0}), -1},
      // Two exchanges: the sign flips twice.
      {"twoExchanges", make(3, 3, {0, 1, 0, 0, 0, 1, 1, 0, 0}), 1},
      {"noPivotInColumn", make(3, 3, {0, 1, 2, 0, 3, 4, 0, 5, 6}), 0},
      {"plain", make(2, 2, {1, 2, 3, 4}), -2},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(matrix::determinant(r.m), r.det) << r.name;
  }
}

TEST(MatrixDeterminant, AgreesWithLongDoubleEliminationUpToOrderFifty) {
  for (int n : {2, 5, 13, 50}) {
    const Matrix a = randomMatrix(n, n, static_cast<unsigned>(n));
    const Reference ref = reference(a, Matrix(n, 0));
    // Relative agreement: the determinant of a 50 x 50 is huge.
    const long double d = ref.det;
    EXPECT_LE(std::fabs((matrix::determinant(a) - d) / d), 1e-10L) << n;
  }
}

// ---- Inverses --------------------------------------------------------------------------

TEST(MatrixInverse, BothRoutinesAgreeWithTheReference) {
  for (int n : {1, 2, 3, 7, 20}) {
    const Matrix a = randomMatrix(n, n, 100u + static_cast<unsigned>(n));
    const Reference ref = reference(a, Matrix::identity(n));
    Matrix gj, adj;
    ASSERT_TRUE(matrix::inverseGaussJordan(a, gj));
    ASSERT_TRUE(matrix::inverseAdjoint(a, adj));
    for (int r = 0; r < n; ++r) {
      for (int c = 0; c < n; ++c) {
        expectNear(gj.at(r, c), ref.right[r][c], 1e-12);
        expectNear(adj.at(r, c), ref.right[r][c], 1e-12);
      }
    }
  }
}

TEST(MatrixInverse, AdjointPutsTheCofactorOfIJAtJI) {
  // Not symmetric, so a cofactor left at (i, j) would show.
  Matrix inv;
  ASSERT_TRUE(matrix::inverseAdjoint(make(2, 2, {1, 2, 3, 4}), inv));
  EXPECT_EQ(inv, make(2, 2, {-2, 1, 1.5, -0.5}));
  ASSERT_TRUE(matrix::inverseAdjoint(make(3, 3, {2, 0, 0, 1, 1, 0, 0, 0, 4}), inv));
  EXPECT_EQ(inv, make(3, 3, {0.5, 0, 0, -0.5, 1, 0, 0, 0, 0.25}));
}

TEST(MatrixInverse, ZeroFirstPivotInvertsThroughTheExchange) {
  Matrix gj, adj;
  ASSERT_TRUE(matrix::inverseGaussJordan(make(2, 2, {0, 1, 2, 3}), gj));
  ASSERT_TRUE(matrix::inverseAdjoint(make(2, 2, {0, 1, 2, 3}), adj));
  EXPECT_EQ(gj, make(2, 2, {-1.5, 0.5, 1, 0}));
  EXPECT_EQ(adj, gj);
}

TEST(MatrixInverse, NoPartialPivotingOnATinyNonZeroPivot) {
  // The tiny pivot is used as it is: the arithmetic loses the (0,0) entry,
  // which a largest-pivot search would have kept at about -1.
  Matrix inv;
  ASSERT_TRUE(matrix::inverseGaussJordan(make(2, 2, {1e-20, 1, 1, 1}), inv));
  EXPECT_EQ(inv.at(0, 0), 0);
  EXPECT_EQ(inv.at(0, 1), 1);
}

TEST(MatrixInverse, SingularMatricesAreRefusedByBoth) {
  Matrix inv;
  for (const Matrix& m : {make(2, 2, {1, 2, 2, 4}), make(3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9}), make(2, 2, {0, 0, 0, 0})}) {
    EXPECT_FALSE(matrix::inverseGaussJordan(m, inv));
    EXPECT_FALSE(matrix::inverseAdjoint(m, inv));
  }
  EXPECT_FALSE(matrix::inverseAdjoint(make(1, 1, {0}), inv));
}

TEST(MatrixInverse, GaussJordanOfZeroOrderOneIsADivisionFailure) {
  Matrix inv;
  try {
    matrix::inverseGaussJordan(make(1, 1, {0}), inv);
    ADD_FAILURE() << "no failure";
  } catch (const rt::RuntimeError& e) {
    EXPECT_EQ(e.number(), rt::kDivisionByZero);
  }
}

// ---- Rank and dependent rows -------------------------------------------------------------

TEST(MatrixRank, CountsTheRowsLeftNonZero) {
  struct Row {
    const char* name;
    Matrix m;
    int rank;
    std::vector<int> dependent;
  } rows[] = {
      {"oneToNine", make(3, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9}), 2, {3}},
      {"zero", make(2, 3, {0, 0, 0, 0, 0, 0}), 0, {1, 2}},
      {"wide", make(2, 3, {1, 2, 3, 0, 1, 1}), 2, {}},
      // The only non-zero column is the last: found by the column search.
      {"lastColumnOnly", make(2, 3, {0, 0, 1, 0, 0, 2}), 1, {2}},
      // A zero row in the middle is carried below by the row exchange.
      {"middleRowDependent", make(3, 2, {1, 2, 2, 4, 0, 1}), 2, {2}},
      {"tall", make(4, 2, {1, 0, 0, 1, 1, 1, 2, 2}), 2, {3, 4}},
  };
  for (const Row& r : rows) {
    std::vector<int> dependent;
    EXPECT_EQ(matrix::rank(r.m, &dependent), r.rank) << r.name;
    EXPECT_EQ(dependent, r.dependent) << r.name;
  }
}

namespace {

// The reference rank: long double elimination with partial pivoting and a
// relative tolerance.
int referenceRank(const Matrix& m) {
  std::vector<std::vector<long double>> w(static_cast<std::size_t>(m.rows));
  for (int r = 0; r < m.rows; ++r) {
    for (int c = 0; c < m.cols; ++c) w[r].push_back(m.at(r, c));
  }
  int rank = 0;
  for (int c = 0; c < m.cols && rank < m.rows; ++c) {
    int best = rank;
    for (int r = rank + 1; r < m.rows; ++r) {
      if (std::fabs(w[r][c]) > std::fabs(w[best][c])) best = r;
    }
    if (std::fabs(w[best][c]) < 1e-9L) continue;
    std::swap(w[best], w[rank]);
    for (int r = rank + 1; r < m.rows; ++r) {
      const long double f = w[r][c] / w[rank][c];
      for (int k = c; k < m.cols; ++k) w[r][k] -= f * w[rank][k];
    }
    ++rank;
  }
  return rank;
}

}  // namespace

TEST(MatrixRank, RepeatedRowsAgreeWithTheReference) {
  // A repeated row cancels exactly (its multiplier is 1), so the exact zero
  // test finds it dependent and the rank agrees with a tolerant reference.
  for (int n : {3, 6, 10}) {
    Matrix m = randomMatrix(n, n + 2, 300u + static_cast<unsigned>(n));
    std::vector<int> copies;
    for (int r = 2; r < n; r += 3) {
      for (int c = 0; c < m.cols; ++c) m.at(r, c) = m.at(r - 2, c);
      copies.push_back(r + 1);
    }
    std::vector<int> dependent;
    EXPECT_EQ(matrix::rank(m, &dependent), referenceRank(m)) << n;
    EXPECT_EQ(dependent, copies) << n;
  }
}

// ---- Products and systems ------------------------------------------------------------------

TEST(MatrixProduct, RowByColumn) {
  EXPECT_EQ(matrix::product(make(2, 3, {1, 2, 3, 4, 5, 6}), make(3, 1, {1, 0, -1})), make(2, 1, {-2, -2}));
  EXPECT_EQ(matrix::transpose(make(2, 3, {1, 2, 3, 4, 5, 6})), make(3, 2, {1, 4, 2, 5, 3, 6}));
  EXPECT_EQ(matrix::sum(make(1, 2, {1, 2}), make(1, 2, {5, 7}), -1), make(1, 2, {-4, -5}));
}

TEST(LinearSolve, AgreesWithTheReferenceUpToFiftyEquations) {
  for (int n : {1, 3, 10, 50}) {
    const Matrix ak = randomMatrix(n, n + 1, 7u * static_cast<unsigned>(n));
    Matrix a(n, n), k(n, 1);
    for (int r = 0; r < n; ++r) {
      for (int c = 0; c < n; ++c) a.at(r, c) = ak.at(r, c);
      k.at(r, 0) = ak.at(r, n);
    }
    const Reference ref = reference(a, k);
    std::vector<double> x;
    ASSERT_TRUE(matrix::solve(ak, x));
    for (int i = 0; i < n; ++i) expectNear(x[static_cast<std::size_t>(i)], ref.right[i][0], 1e-12);
  }
}
