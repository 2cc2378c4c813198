#pragma once

#include <array>
#include <cmath>
#include <cstddef>

/// Points and small matrices of the scene renderer. Plain records, no library behind them.
namespace scene {

/// A point or vector of a plane.
struct Point2 {
  double x = 0.0;
  double y = 0.0;
};

/// A point or vector of space.
struct Point3 {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

/// A 2x2 matrix of derivatives: `xy` is d(first result) / d(second argument).
struct Matrix2 {
  double xx = 1.0;
  double xy = 0.0;
  double yx = 0.0;
  double yy = 1.0;
};

/// A 3x3 matrix, row by row. The default is the identity.
struct Matrix3 {
  std::array<double, 9> values{1, 0, 0, 0, 1, 0, 0, 0, 1};

  double& at(std::size_t row, std::size_t column) { return values[row * 3 + column]; }
  [[nodiscard]] double at(std::size_t row, std::size_t column) const { return values[row * 3 + column]; }
};

inline Point2 operator+(Point2 a, Point2 b) { return {a.x + b.x, a.y + b.y}; }
inline Point2 operator-(Point2 a, Point2 b) { return {a.x - b.x, a.y - b.y}; }
inline Point2 operator*(double s, Point2 a) { return {s * a.x, s * a.y}; }
inline Point2 operator*(const Matrix2& m, Point2 a) { return {m.xx * a.x + m.xy * a.y, m.yx * a.x + m.yy * a.y}; }
inline double norm(Point2 a) { return std::sqrt(a.x * a.x + a.y * a.y); }
inline double determinant(const Matrix2& m) { return m.xx * m.yy - m.xy * m.yx; }

inline Point3 operator+(const Point3& a, const Point3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Point3 operator-(const Point3& a, const Point3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Point3 operator*(double s, const Point3& a) { return {s * a.x, s * a.y, s * a.z}; }
inline double dot(const Point3& a, const Point3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double norm(const Point3& a) { return std::sqrt(dot(a, a)); }

inline Point3 cross(const Point3& a, const Point3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Point3 columnOf(const Matrix3& m, std::size_t column) {
  return {m.at(0, column), m.at(1, column), m.at(2, column)};
}

inline Matrix3 fromColumns(const Point3& a, const Point3& b, const Point3& c) {
  return {{a.x, b.x, c.x, a.y, b.y, c.y, a.z, b.z, c.z}};
}

inline Point3 operator*(const Matrix3& m, const Point3& a) {
  return a.x * columnOf(m, 0) + a.y * columnOf(m, 1) + a.z * columnOf(m, 2);
}

inline Matrix3 operator*(const Matrix3& a, const Matrix3& b) {
  return fromColumns(a * columnOf(b, 0), a * columnOf(b, 1), a * columnOf(b, 2));
}

inline Matrix3 transposed(const Matrix3& m) {
  const auto& v = m.values;
  return {{v[0], v[3], v[6], v[1], v[4], v[7], v[2], v[5], v[8]}};
}

/// The inverse by the adjugate. Precondition: `m` is regular.
inline Matrix3 inverse(const Matrix3& m) {
  const Point3 a = columnOf(m, 0);
  const Point3 b = columnOf(m, 1);
  const Point3 c = columnOf(m, 2);
  const double scale = 1.0 / dot(a, cross(b, c));
  return transposed(fromColumns(scale * cross(b, c), scale * cross(c, a), scale * cross(a, b)));
}

}  // namespace scene
