// Arrays with declared index ranges (1-based unless told), checked as the original checks them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "properties/vb.h"

namespace kestrane {

// One dimension, indices lo..hi. An index outside is error 9.
template <typename T>
class Array1D {
 public:
  Array1D() = default;
  explicit Array1D(int hi) : Array1D(1, hi) {}
  Array1D(int lo, int hi) : lo_(lo), hi_(hi), cells_(static_cast<size_t>(std::max(0, hi - lo + 1))) {}
  // Fills lo, lo+1, ... with the listed values.
  Array1D(int lo, std::initializer_list<T> values)
      : lo_(lo), hi_(lo + static_cast<int>(values.size()) - 1), cells_(values) {}

  T& operator()(int i) { return cells_[Offset(i)]; }
  const T& operator()(int i) const { return cells_[Offset(i)]; }

  int lo() const { return lo_; }
  int hi() const { return hi_; }
  int size() const { return static_cast<int>(cells_.size()); }
  void Clear() { std::fill(cells_.begin(), cells_.end(), T{}); }

 private:
  size_t Offset(int i) const {
    if (i < lo_ || i > hi_) throw VbError(9);
    return static_cast<size_t>(i - lo_);
  }
  int lo_ = 1;
  int hi_ = 0;
  std::vector<T> cells_;
};

// Two dimensions, indices (lo1..hi1, lo2..hi2). An index outside is error 9.
template <typename T>
class Array2D {
 public:
  Array2D() = default;
  Array2D(int hi1, int hi2) : Array2D(1, hi1, 1, hi2) {}
  Array2D(int lo1, int hi1, int lo2, int hi2)
      : lo1_(lo1), hi1_(hi1), lo2_(lo2), hi2_(hi2),
        cells_(static_cast<size_t>(std::max(0, hi1 - lo1 + 1)) * static_cast<size_t>(std::max(0, hi2 - lo2 + 1))) {}
  // A 1-based table from its rows: rows.size() by the row length.
  Array2D(std::initializer_list<std::initializer_list<T>> rows)
      : Array2D(static_cast<int>(rows.size()), rows.size() ? static_cast<int>(rows.begin()->size()) : 0) {
    int i = 1;
    for (const auto& row : rows) {
      int j = 1;
      for (const T& v : row) (*this)(i, j++) = v;
      ++i;
    }
  }

  T& operator()(int i, int j) { return cells_[Offset(i, j)]; }
  const T& operator()(int i, int j) const { return cells_[Offset(i, j)]; }

  int lo1() const { return lo1_; }
  int hi1() const { return hi1_; }
  int lo2() const { return lo2_; }
  int hi2() const { return hi2_; }
  void Clear() { std::fill(cells_.begin(), cells_.end(), T{}); }

 private:
  size_t Offset(int i, int j) const {
    if (i < lo1_ || i > hi1_ || j < lo2_ || j > hi2_) throw VbError(9);
    return static_cast<size_t>(i - lo1_) * static_cast<size_t>(hi2_ - lo2_ + 1) + static_cast<size_t>(j - lo2_);
  }
  int lo1_ = 1, hi1_ = 0, lo2_ = 1, hi2_ = 0;
  std::vector<T> cells_;
};

// Three dimensions, all 1-based. An index outside is error 9.
template <typename T>
class Array3D {
 public:
  Array3D() = default;
  Array3D(int n1, int n2, int n3)
      : n1_(n1), n2_(n2), n3_(n3), cells_(static_cast<size_t>(n1) * static_cast<size_t>(n2) * static_cast<size_t>(n3)) {}

  T& operator()(int i, int j, int k) { return cells_[Offset(i, j, k)]; }
  const T& operator()(int i, int j, int k) const { return cells_[Offset(i, j, k)]; }
  void Clear() { std::fill(cells_.begin(), cells_.end(), T{}); }

 private:
  size_t Offset(int i, int j, int k) const {
    if (i < 1 || i > n1_ || j < 1 || j > n2_ || k < 1 || k > n3_) throw VbError(9);
    return (static_cast<size_t>(i - 1) * static_cast<size_t>(n2_) + static_cast<size_t>(j - 1)) *
               static_cast<size_t>(n3_) +
           static_cast<size_t>(k - 1);
  }
  int n1_ = 0, n2_ = 0, n3_ = 0;
  std::vector<T> cells_;
};

}  // namespace kestrane
