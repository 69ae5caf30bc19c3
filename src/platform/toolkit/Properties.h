#pragma once
// Reading and writing properties and fields by name, for the driver and the presenter.

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/PropertyName.h"
#include "platform/toolkit/Value.h"

namespace vellumry::tk {

class Control;

// One named property of a control class. `set` is null for a read-only property; `getAt`
// is set for an indexed one such as List(i).
struct Property {
  PropertyName name;
  Value (*get)(const Control&);
  void (*set)(Control&, const Value&);
  Value (*getAt)(const Control&, int) = nullptr;
};

template <class A>
A fromValue(const Value& v) {
  if constexpr (std::is_same_v<A, bool>) {
    return toBool(v);
  } else if constexpr (std::is_same_v<A, std::string>) {
    return toText(v);
  } else if constexpr (std::is_floating_point_v<A>) {
    return static_cast<A>(toNumber(v));
  } else {
    static_assert(std::is_integral_v<A>);
    double d = roundHalfEven(toNumber(v));
    if (d < static_cast<double>(std::numeric_limits<int64_t>::min()) ||
        d > static_cast<double>(std::numeric_limits<int64_t>::max()))
      raise(err::Overflow);
    return static_cast<A>(static_cast<int64_t>(d));
  }
}

template <class R>
Value toValue(const R& r) {
  if constexpr (std::is_same_v<R, bool>) {
    return r;
  } else if constexpr (std::is_arithmetic_v<R>) {
    return static_cast<double>(r);
  } else {
    return std::string(r);
  }
}

template <class>
struct SetterArg;
template <class C, class A>
struct SetterArg<void (C::*)(A)> {
  using type = std::decay_t<A>;
};

// A property read by `get` and, unless `Set` is nullptr, written by `Set`, members of `T`.
template <class T, auto Get, auto Set = nullptr>
Property accessor(PropertyName name) {
  Property p{name,
             [](const Control& c) -> Value { return toValue((static_cast<const T&>(c).*Get)()); },
             nullptr};
  if constexpr (!std::is_same_v<decltype(Set), std::nullptr_t>) {
    p.set = [](Control& c, const Value& v) {
      (static_cast<T&>(c).*Set)(fromValue<typename SetterArg<decltype(Set)>::type>(v));
    };
  }
  return p;
}

// Named fields of a form or of the program, bound to the variables that hold them.
class FieldTable {
 public:
  template <class V>
  void add(std::string name, V& ref) {
    entries_.push_back({std::move(name), [&ref](int) { return toValue(ref); },
                        [&ref](int, const Value& v) { ref = fromValue<V>(v); }, nullptr});
  }
  template <class V>
  void addArray(std::string name, std::vector<V>& ref) {
    entries_.push_back({std::move(name), [&ref](int i) { return toValue(V(at(ref, i))); },
                        [&ref](int i, const Value& v) { at(ref, i) = fromValue<V>(v); },
                        [&ref] { return static_cast<int>(ref.size()); }});
  }

  bool has(std::string_view name) const { return find(name) != nullptr; }
  // Missing names and indices raise err::NotSupported and err::SubscriptOutOfRange.
  Value get(std::string_view name, std::optional<int> index = {}) const;
  void set(std::string_view name, std::optional<int> index, const Value& v);
  // Each field as `name` = value, arrays as lists; for dumps.
  std::vector<std::pair<std::string, std::vector<Value>>> all() const;

 private:
  struct Entry {
    std::string name;
    std::function<Value(int)> get;
    std::function<void(int, const Value&)> set;
    std::function<int()> size;  // null for a scalar
  };
  template <class V>
  static auto& at(std::vector<V>& v, int i) {
    if (i < 0 || i >= static_cast<int>(v.size())) raise(err::SubscriptOutOfRange);
    return v[static_cast<size_t>(i)];
  }
  const Entry* find(std::string_view name) const;

  std::vector<Entry> entries_;
};

}  // namespace vellumry::tk
