#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "support/failure.h"

namespace tos {

// Signed integers whose every addition, subtraction and increment has the range
// test (failure 6), as all counters and indexes of the program must.
template <class Rep>
class CheckedInt {
public:
    using rep = Rep;
    constexpr CheckedInt() = default;
    constexpr CheckedInt(Rep v) : v_(v) {}

    // Range-tested construction from a wider value.
    static CheckedInt From(long long v)
    {
        if (v < std::numeric_limits<Rep>::min() || v > std::numeric_limits<Rep>::max())
            Fail(err::Overflow);
        return CheckedInt(static_cast<Rep>(v));
    }

    constexpr Rep value() const { return v_; }
    constexpr explicit operator Rep() const { return v_; }

    friend CheckedInt operator+(CheckedInt a, CheckedInt b) { return From(1LL * a.v_ + b.v_); }
    friend CheckedInt operator-(CheckedInt a, CheckedInt b) { return From(1LL * a.v_ - b.v_); }
    friend CheckedInt operator*(CheckedInt a, CheckedInt b) { return From(1LL * a.v_ * b.v_); }
    CheckedInt operator-() const { return From(-1LL * v_); }
    CheckedInt& operator+=(CheckedInt b) { return *this = *this + b; }
    CheckedInt& operator-=(CheckedInt b) { return *this = *this - b; }
    CheckedInt& operator++() { return *this = *this + CheckedInt(1); }
    CheckedInt& operator--() { return *this = *this - CheckedInt(1); }

    friend constexpr auto operator<=>(CheckedInt a, CheckedInt b) = default;

private:
    Rep v_ = 0;
};

using Int16 = CheckedInt<std::int16_t>;
using Int32 = CheckedInt<std::int32_t>;

// A double whose arithmetic never yields an infinity or a not-a-number:
// x/0 is failure 11 (0/0 is 6), a result too large is 6, sqrt of a negative is 5.
class Num {
public:
    constexpr Num() = default;
    constexpr Num(double v) : v_(v) {}
    constexpr double value() const { return v_; }

    friend Num operator+(Num a, Num b) { return Checked(a.v_ + b.v_); }
    friend Num operator-(Num a, Num b) { return Checked(a.v_ - b.v_); }
    friend Num operator*(Num a, Num b) { return Checked(a.v_ * b.v_); }
    friend Num operator/(Num a, Num b)
    {
        if (b.v_ == 0.0)
            Fail(a.v_ == 0.0 ? err::Overflow : err::DivisionByZero);
        return Checked(a.v_ / b.v_);
    }
    constexpr Num operator-() const { return Num(-v_); }
    Num& operator+=(Num b) { return *this = *this + b; }
    Num& operator-=(Num b) { return *this = *this - b; }
    Num& operator*=(Num b) { return *this = *this * b; }
    Num& operator/=(Num b) { return *this = *this / b; }

    friend constexpr bool operator==(Num a, Num b) { return a.v_ == b.v_; }
    friend constexpr auto operator<=>(Num a, Num b) { return a.v_ <=> b.v_; }

private:
    static Num Checked(double r)
    {
        if (!std::isfinite(r))
            Fail(err::Overflow);
        return Num(r);
    }
    double v_ = 0.0;
};

inline Num Sqrt(Num x)
{
    if (x.value() < 0.0)
        Fail(err::InvalidCall);
    return Num(std::sqrt(x.value()));
}
inline Num Atan(Num x) { return Num(std::atan(x.value())); }
inline Num Sin(Num x) { return Num(std::sin(x.value())); }
inline Num Cos(Num x) { return Num(std::cos(x.value())); }

} // namespace tos
