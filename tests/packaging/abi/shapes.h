// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief An interface with one of each kind of thing that a program may rely on. Each macro
/// changes one of them, as a careless change to a library does; none of them changes an exported
/// name.
#pragma once

#include <cstdint>

namespace shapes {

#ifdef CHANGED_ENUMERATOR
enum class Colour : std::uint8_t { GREEN, RED };
#elif defined(CHANGED_ENUM_TYPE)
enum class Colour : std::int32_t { RED, GREEN };
#else
enum class Colour : std::uint8_t { RED, GREEN };
#endif

#ifdef CHANGED_ORDER
struct Point {
    int y;
    int x;
};
#elif defined(CHANGED_MEMBER_TYPE)
struct Point {
    float x;
    int y;
};
#elif defined(CHANGED_SIZE)
struct Point {
    int x;
    int y;
    int z;
};
#else
struct Point {
    int x;
    int y;
};
#endif

class Base {
public:
    virtual ~Base();
#ifdef CHANGED_VIRTUAL_ORDER
    virtual int second() const;
    virtual int first() const;
#else
    virtual int first() const;
    virtual int second() const;
#endif
};

class Other {
public:
    long number = 0;
};

#ifdef CHANGED_BASES
class Shape : public Base, public virtual Other {
#else
class Shape : public Base, public Other {
#endif
public:
    explicit Shape(const Point& at);
#ifdef CHANGED_RESULT
    long colour() const;
#else
    Colour colour() const;
#endif

private:
    Point at_;
};

#ifdef CHANGED_VARIABLE
extern long variable;
#else
extern int variable;
#endif

} // namespace shapes
