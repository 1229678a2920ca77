#pragma once

// One piece of a control's state: reads like a plain value, and tells when it changes.

#include <utility>

#include "controls/Signal.h"

namespace tessarin {

template <class T>
class Property {
 public:
  // `changed` must outlive the property; both are members of one control.
  explicit Property(Signal<>& changed, T value = T())
      : changed_(changed), value_(std::move(value)) {}
  Property(const Property&) = delete;

  // Setting the value that already stands tells nobody.
  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    changed_();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }

  operator const T&() const { return value_; }
  const T& operator()() const { return value_; }
  const T* operator->() const { return &value_; }

 private:
  Signal<>& changed_;
  T value_;
};

}  // namespace tessarin
