// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The library of shapes.h.
#include "shapes.h"

namespace shapes {

Base::~Base() = default;

int Base::first() const {
    return 1;
}

int Base::second() const {
    return 2;
}

Shape::Shape(const Point& at) : at_(at) {}

// The one type that both declarations of the result can be made of is deduced.
decltype(Shape({}).colour()) Shape::colour() const {
    return static_cast<decltype(Shape({}).colour())>(at_.x);
}

decltype(variable) variable = 1;

} // namespace shapes
