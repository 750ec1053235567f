#include "platform/quartzcore/CAInterpolation.h"

#include <optional>

#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/CGMutablePath.h"

namespace bkuk {

namespace {

using Components = std::vector<double>;

template <typename... Types>
struct Overloads : Types... {
  using Types::operator()...;
};
template <typename... Types>
Overloads(Types...) -> Overloads<Types...>;

const CGColor* colorIn(const CAValue& value) {
  const auto* object = std::get_if<Ref<NSObject>>(&value);
  return object ? dynamic_cast<const CGColor*>(object->get()) : nullptr;
}

const CGPath* pathIn(const CAValue& value) {
  const auto* object = std::get_if<Ref<NSObject>>(&value);
  return object ? dynamic_cast<const CGPath*>(object->get()) : nullptr;
}

bool isAbsent(const CAValue& value) {
  const auto* object = std::get_if<Ref<NSObject>>(&value);
  return std::holds_alternative<std::monostate>(value) || (object && !*object);
}

Components componentsOf(const CGColor& color) {
  const auto srgb = color.converted(CGColorSpace::sRGB());
  const auto values = srgb->components();
  return {values.begin(), values.end()};
}

Components componentsOf(const CGPath& path) {
  Components components;
  for (const auto& element : path.elements()) {
    for (int i = 0; i < pointCount(element.type); ++i) {
      components.push_back(element.points[i].x);
      components.push_back(element.points[i].y);
    }
  }
  return components;
}

std::optional<Components> componentsOfObject(const CAValue& value) {
  if (const auto* color = colorIn(value)) return componentsOf(*color);
  if (const auto* path = pathIn(value)) return componentsOf(*path);
  return std::nullopt;
}

std::optional<Components> componentsOfObjects(const std::vector<Ref<NSObject>>& objects) {
  Components all;
  for (const auto& object : objects) {
    const auto components = componentsOfObject(object);
    if (!components) return std::nullopt;
    all.insert(all.end(), components->begin(), components->end());
  }
  return all;
}

Components componentsOf(const CATransform3D& t) {
  return {t.m11, t.m12, t.m13, t.m14, t.m21, t.m22, t.m23, t.m24,
          t.m31, t.m32, t.m33, t.m34, t.m41, t.m42, t.m43, t.m44};
}

// None for values that have no way between them.
std::optional<Components> componentsOf(const CAValue& value) {
  using Result = std::optional<Components>;
  return std::visit(
      Overloads{
          [](double number) -> Result { return Components{number}; },
          [](CGPoint point) -> Result {
            return Components{point.x, point.y};
          },
          [](CGSize size) -> Result {
            return Components{size.width, size.height};
          },
          [](const CGRect& rect) -> Result {
            return Components{rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
          },
          [](const CATransform3D& transform) -> Result { return componentsOf(transform); },
          [](const Components& numbers) -> Result { return numbers; },
          [](const Ref<NSObject>& object) -> Result { return componentsOfObject(object); },
          [](const std::vector<Ref<NSObject>>& objects) -> Result { return componentsOfObjects(objects); },
          [](const auto&) -> Result { return std::nullopt; },
      },
      value);
}

// Hands out components in order while a value is built from them again.
class Reader {
 public:
  explicit Reader(const Components& components) : next_(components.data()) {}
  double operator()() { return *next_++; }
  CGPoint point() {
    const auto x = (*this)();
    return {x, (*this)()};
  }

 private:
  const double* next_;
};

void append(CGMutablePath& path, CGPathElementType type, const CGPoint (&points)[3]) {
  switch (type) {
    case CGPathElementType::moveToPoint:
      return path.move(points[0]);
    case CGPathElementType::addLineToPoint:
      return path.addLine(points[0]);
    case CGPathElementType::addQuadCurveToPoint:
      return path.addQuadCurve(points[1], points[0]);
    case CGPathElementType::addCurveToPoint:
      return path.addCurve(points[2], points[0], points[1]);
    case CGPathElementType::closeSubpath:
      return path.closeSubpath();
  }
}

Ref<NSObject> rebuiltPath(const CGPath& like, Reader& read) {
  auto path = make<CGMutablePath>();
  for (const auto& element : like.elements()) {
    CGPoint points[3];
    for (int i = 0; i < pointCount(element.type); ++i) points[i] = read.point();
    append(*path, element.type, points);
  }
  return path;
}

Ref<NSObject> rebuiltObject(const Ref<NSObject>& like, Reader& read) {
  if (const auto* path = pathIn(like)) return rebuiltPath(*path, read);
  const auto red = read();
  const auto green = read();
  const auto blue = read();
  return CGColor::srgb(red, green, blue, read());
}

CATransform3D rebuiltTransform(Reader& read) {
  CATransform3D t;
  for (auto* element : {&t.m11, &t.m12, &t.m13, &t.m14, &t.m21, &t.m22, &t.m23, &t.m24, &t.m31, &t.m32,
                        &t.m33, &t.m34, &t.m41, &t.m42, &t.m43, &t.m44}) {
    *element = read();
  }
  return t;
}

// A value of the kind of `like` that has these components.
CAValue rebuilt(const CAValue& like, const Components& components) {
  Reader read(components);
  return std::visit(Overloads{
                        [&](double) -> CAValue { return read(); },
                        [&](CGPoint) -> CAValue { return read.point(); },
                        [&](CGSize) -> CAValue {
                          const auto size = read.point();
                          return CGSize{size.x, size.y};
                        },
                        [&](const CGRect&) -> CAValue {
                          const auto origin = read.point();
                          const auto size = read.point();
                          return CGRect(origin, {size.x, size.y});
                        },
                        [&](const CATransform3D&) -> CAValue { return rebuiltTransform(read); },
                        [&](const Components&) -> CAValue { return components; },
                        [&](const Ref<NSObject>& object) -> CAValue { return rebuiltObject(object, read); },
                        [&](const std::vector<Ref<NSObject>>& objects) -> CAValue {
                          std::vector<Ref<NSObject>> all;
                          for (const auto& object : objects) all.push_back(rebuiltObject(object, read));
                          return all;
                        },
                        [&](const auto&) -> CAValue { return like; },
                    },
                    like);
}

bool haveSameElements(const CGPath& a, const CGPath& b) {
  const auto first = a.elements();
  const auto second = b.elements();
  return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                    [](const auto& x, const auto& y) { return x.type == y.type; });
}

bool haveSameKind(const NSObject* a, const NSObject* b) {
  const auto* path = dynamic_cast<const CGPath*>(a);
  const auto* other = dynamic_cast<const CGPath*>(b);
  return path && other ? haveSameElements(*path, *other) : !path && !other;
}

bool haveSameKind(const CAValue& a, const CAValue& b) {
  if (a.index() != b.index()) return false;
  if (const auto* object = std::get_if<Ref<NSObject>>(&a)) {
    return haveSameKind(object->get(), std::get<Ref<NSObject>>(b).get());
  }
  const auto* objects = std::get_if<std::vector<Ref<NSObject>>>(&a);
  if (!objects) return true;
  const auto& others = std::get<std::vector<Ref<NSObject>>>(b);
  return std::equal(objects->begin(), objects->end(), others.begin(), others.end(),
                    [](const auto& x, const auto& y) { return haveSameKind(x.get(), y.get()); });
}

// What stands for an absent end of a way between colours.
CAValue transparentLike(const CAValue& absent, const CAValue& other) {
  const auto* color = colorIn(other);
  return isAbsent(absent) && color ? CAValue(Ref<NSObject>(color->copy(0.0))) : absent;
}

// a·x + b·y of each component, none where that makes no sense.
std::optional<CAValue> combined(const CAValue& x, double a, const CAValue& y, double b) {
  if (!haveSameKind(x, y)) return std::nullopt;
  auto first = componentsOf(x);
  const auto second = componentsOf(y);
  if (!first || !second || first->size() != second->size()) return std::nullopt;
  for (std::size_t i = 0; i < first->size(); ++i) (*first)[i] = (*first)[i] * a + (*second)[i] * b;
  return rebuilt(x, *first);
}

}  // namespace

CAValue interpolated(const CAValue& from, const CAValue& to, CGFloat progress) {
  if (progress == 1) return to;
  const auto start = transparentLike(from, to);
  const auto end = transparentLike(to, from);
  const auto between = combined(start, 1 - progress, end, progress);
  return between ? *between : from;
}

CAValue moved(const CAValue& value, const CAValue& distance, CGFloat factor) {
  return combined(value, 1, distance, factor).value_or(value);
}

}  // namespace bkuk
