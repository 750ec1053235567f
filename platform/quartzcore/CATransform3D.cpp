#include "platform/quartzcore/CATransform3D.h"

#include <array>
#include <cmath>

namespace bkuk {

namespace {

using Rows = std::array<std::array<CGFloat, 4>, 4>;

Rows rows(const CATransform3D& t) {
  return {{{t.m11, t.m12, t.m13, t.m14},
           {t.m21, t.m22, t.m23, t.m24},
           {t.m31, t.m32, t.m33, t.m34},
           {t.m41, t.m42, t.m43, t.m44}}};
}

CATransform3D fromRows(const Rows& r) {
  return {r[0][0], r[0][1], r[0][2], r[0][3], r[1][0], r[1][1], r[1][2], r[1][3],
          r[2][0], r[2][1], r[2][2], r[2][3], r[3][0], r[3][1], r[3][2], r[3][3]};
}

}  // namespace

bool CATransform3DIsIdentity(const CATransform3D& transform) { return transform == CATransform3DIdentity; }

CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz) {
  CATransform3D transform;
  transform.m41 = tx;
  transform.m42 = ty;
  transform.m43 = tz;
  return transform;
}

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz) {
  CATransform3D transform;
  transform.m11 = sx;
  transform.m22 = sy;
  transform.m33 = sz;
  return transform;
}

CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
  const auto length = std::sqrt(x * x + y * y + z * z);
  if (!(length > 0)) return {};
  x /= length;
  y /= length;
  z /= length;
  const auto cosine = std::cos(angle);
  const auto sine = std::sin(angle);
  const auto rest = 1 - cosine;
  CATransform3D transform;
  transform.m11 = cosine + x * x * rest;
  transform.m12 = x * y * rest + z * sine;
  transform.m13 = x * z * rest - y * sine;
  transform.m21 = x * y * rest - z * sine;
  transform.m22 = cosine + y * y * rest;
  transform.m23 = y * z * rest + x * sine;
  transform.m31 = x * z * rest + y * sine;
  transform.m32 = y * z * rest - x * sine;
  transform.m33 = cosine + z * z * rest;
  return transform;
}

CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& affine) {
  CATransform3D transform;
  transform.m11 = affine.a;
  transform.m12 = affine.b;
  transform.m21 = affine.c;
  transform.m22 = affine.d;
  transform.m41 = affine.tx;
  transform.m42 = affine.ty;
  return transform;
}

CATransform3D CATransform3DConcat(const CATransform3D& a, const CATransform3D& b) {
  const auto first = rows(a);
  const auto second = rows(b);
  Rows product{};
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      for (std::size_t i = 0; i < 4; ++i) product[row][column] += first[row][i] * second[i][column];
    }
  }
  return fromRows(product);
}

CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& t) {
  return {t.m11, t.m12, t.m21, t.m22, t.m41, t.m42};
}

}  // namespace bkuk
