#include "support/conversions.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

#include "support/case_blind.h"

namespace tos {

namespace {

// Characters the number reader steps over wherever they stand.
bool IsSkipped(char c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

class NumberCursor {
public:
    explicit NumberCursor(std::string_view text) : text_(text) {}

    // Next significant character, or -1 at the end.
    int Peek()
    {
        while (at_ < text_.size() && IsSkipped(text_[at_]))
            ++at_;
        return at_ < text_.size() ? static_cast<unsigned char>(text_[at_]) : -1;
    }
    void Take() { ++at_; }

private:
    std::string_view text_;
    std::size_t at_ = 0;
};

int DigitValue(int c, int base)
{
    int v = -1;
    if (c >= '0' && c <= '9')
        v = c - '0';
    else if (c >= 'a' && c <= 'f')
        v = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        v = c - 'A' + 10;
    return v < base ? v : -1;
}

// "&H" / "&O" digits: the value decides the width, 16 bits up to FFFF, 32 bits up to FFFFFFFF.
double RadixNumber(NumberCursor& cur, int base)
{
    unsigned long long value = 0;
    bool tooLarge = false;
    for (int d; (d = DigitValue(cur.Peek(), base)) >= 0; cur.Take()) {
        if (!tooLarge) {
            value = value * static_cast<unsigned>(base) + static_cast<unsigned>(d);
            tooLarge = value > 0xFFFFFFFFULL;
        }
    }
    if (tooLarge)
        Fail(err::Overflow);
    if (value <= 0xFFFF)
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

// Whether a plain decimal text ("-12.5e-3" form, not zero) is 1 or more in magnitude.
bool AtLeastOne(std::string_view number)
{
    const std::size_t e = number.find('e');
    long long exponent = 0;
    if (e != std::string_view::npos)
        std::from_chars(number.data() + e + 1, number.data() + number.size(), exponent);
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t first = mantissa.find_first_of("123456789");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    if (first == std::string_view::npos)
        return false;
    // The power of ten of the first significant digit.
    const long long order =
        static_cast<long long>(point) - static_cast<long long>(first) - (first < point ? 1 : 0);
    return order + exponent >= 0;
}

// The correctly rounded double of a plain decimal text ("-12.5e-3" form). Not strtod:
// it reads the decimal mark of the C locale, which a desktop toolkit may have switched
// to the user's.
double DecimalValue(const std::string& number)
{
    double v = 0;
    const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), v);
    if (ec == std::errc::result_out_of_range) {
        // Only a value too large or too small for any double lands here.
        if (AtLeastOne(number))
            Fail(err::Overflow);
        return number.front() == '-' ? -0.0 : 0.0;
    }
    return v;
}

constexpr std::array<unsigned char, 256> MakeUpperTable()
{
    std::array<unsigned char, 256> t{};
    for (int i = 0; i < 256; ++i)
        t[i] = static_cast<unsigned char>(i);
    for (int c = 'a'; c <= 'z'; ++c)
        t[c] = static_cast<unsigned char>(c - 0x20);
    for (int c = 0xE0; c <= 0xFE; ++c)
        if (c != 0xF7)
            t[c] = static_cast<unsigned char>(c - 0x20);
    t[0x9A] = 0x8A;
    t[0x9C] = 0x8C;
    t[0x9E] = 0x8E;
    t[0xFF] = 0x9F;
    return t;
}

// Digits and exponent of to_chars' scientific form "d.ddde+XX"; none past `limit`.
LeadingDigits ParseScientific(const char* first, const char* last, int limit)
{
    LeadingDigits out{};
    int n = 0;
    const char* at = first;
    for (; at != last && *at != 'e'; ++at)
        if (*at != '.' && n < limit)
            out.digits[n++] = *at;
    std::fill(out.digits + n, out.digits + 17, '0');
    if (at != last)
        std::from_chars(at + 1 + (at[1] == '+' ? 1 : 0), last, out.exponent);
    return out;
}

constexpr std::array<unsigned __int128, 23> MakePowersOfTen()
{
    std::array<unsigned __int128, 23> t{};
    t[0] = 1;
    for (std::size_t i = 1; i < t.size(); ++i)
        t[i] = t[i - 1] * 10;
    return t;
}
constexpr std::array<unsigned __int128, 23> kPowersOfTen = MakePowersOfTen();

// The digits of an ordinary value, from its exact binary form in 128-bit integers:
// value * 10^k rounded to a whole number, half to even as a fixed-digit print does.
// False where the product would not fit; such values take the print instead.
bool ExactDigits(double magnitude, int count, LeadingDigits& out)
{
    if (!(magnitude >= std::numeric_limits<double>::min() && magnitude < 1e15) || count > 17)
        return false;
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const std::uint64_t mantissa = (bits & ((1ULL << 52) - 1)) | (1ULL << 52);
    const int shift = 1075 - static_cast<int>(bits >> 52); // value = mantissa / 2^shift
    if (shift <= 0 || shift > 120)
        return false;
    // The power of ten of the first digit, or one less: value >= 2^(52 - shift).
    // floor(n log10 2) by a fixed-point product, exact for |n| below 1,650.
    int e = ((52 - shift) * 78913) >> 18;
    const auto low = static_cast<std::uint64_t>(kPowersOfTen[count - 1]);
    const std::uint64_t high = low * 10;
    for (int attempt = 0; attempt < 2; ++attempt, ++e) {
        const int k = count - 1 - e;
        if (k < 0 || k > 22)
            return false;
        const unsigned __int128 scaled = kPowersOfTen[k] * mantissa;
        auto whole = static_cast<std::uint64_t>(scaled >> shift);
        if (whole >= high)
            continue;
        const unsigned __int128 rest = scaled - (static_cast<unsigned __int128>(whole) << shift);
        const unsigned __int128 half = static_cast<unsigned __int128>(1) << (shift - 1);
        if (rest > half || (rest == half && (whole & 1) != 0))
            ++whole;
        if (whole == high) {
            whole = low;
            ++e;
        }
        // whole has exactly count digits, which to_chars writes two at a time.
        std::to_chars(out.digits, out.digits + count, whole);
        std::fill(out.digits + count, out.digits + 17, '0');
        out.exponent = e;
        return true;
    }
    return false;
}

// The 15 significant digits of |value| and the decimal exponent of the first one.
struct Digits15 {
    char digits[15];
    int exponent;
};

Digits15 SignificantDigits(double magnitude)
{
    const LeadingDigits d = RoundedDigits(magnitude, 15);
    Digits15 out{};
    std::copy_n(d.digits, 15, out.digits);
    out.exponent = d.exponent;
    return out;
}

// Half to even (the default rounding mode), then the range test.
template <class Rep> CheckedInt<Rep> RoundedTo(double value)
{
    const double r = std::nearbyint(value);
    if (!(r >= std::numeric_limits<Rep>::min() && r <= std::numeric_limits<Rep>::max()))
        Fail(err::Overflow);
    return CheckedInt<Rep>(static_cast<Rep>(r));
}

// The common form, one sign, digits and at most one point with nothing else around them,
// read straight from the text with no copy. False for any other form.
bool PlainDecimal(std::string_view text, double& value)
{
    const char* first = text.data();
    const char* const end = first + text.size();
    const char* at = first;
    if (at != end && (*at == '+' || *at == '-'))
        ++at;
    if (at != first && *first == '+')
        first = at; // from_chars takes no plus sign
    bool digit = false, point = false;
    // The digits as a whole number and how many stand behind the point.
    std::uint64_t whole = 0;
    int behindPoint = 0;
    bool exact = true;
    for (; at != end; ++at) {
        if (*at >= '0' && *at <= '9') {
            digit = true;
            if (whole >= (std::uint64_t{1} << 53) / 10)
                exact = false;
            whole = whole * 10 + static_cast<unsigned>(*at - '0');
            behindPoint += point;
        } else if (*at == '.' && !point) {
            point = true;
        } else {
            return false;
        }
    }
    if (!digit)
        return false;
    // A whole number below 2^53 and a power of ten up to 10^22 are both exact doubles, so
    // one division rounds once, exactly as a correctly rounded reading of the text does.
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                         1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (exact && behindPoint <= 22) {
        value = static_cast<double>(whole) / kPowers[behindPoint];
        if (*text.data() == '-')
            value = -value;
        return true;
    }
    const auto [stop, ec] = std::from_chars(first, end, value);
    return ec == std::errc() && stop == end;
}

} // namespace

namespace detail {
constinit const std::array<unsigned char, 256> kUpperBytes = MakeUpperTable();
}

LeadingDigits RoundedDigits(double value, int count)
{
    const double magnitude = std::fabs(value);
    LeadingDigits d{};
    if (ExactDigits(magnitude, count, d))
        return d;
    char buf[40];
    const auto r =
        std::to_chars(buf, buf + sizeof buf, magnitude, std::chars_format::scientific, count - 1);
    return ParseScientific(buf, r.ptr, count);
}

double TextToNumber(std::string_view text)
{
    if (double value; PlainDecimal(text, value))
        return value;

    NumberCursor cur(text);
    if (cur.Peek() == '&') {
        cur.Take();
        const int kind = cur.Peek();
        if (kind == 'H' || kind == 'h' || kind == 'O' || kind == 'o') {
            cur.Take();
            return RadixNumber(cur, kind == 'H' || kind == 'h' ? 16 : 8);
        }
        return 0;
    }

    std::string number;
    if (cur.Peek() == '-' || cur.Peek() == '+') {
        if (cur.Peek() == '-')
            number += '-';
        cur.Take();
    }
    bool point = false, anyDigit = false;
    for (int c = cur.Peek(); (c >= '0' && c <= '9') || (c == '.' && !point); c = cur.Peek()) {
        point = point || c == '.';
        anyDigit = anyDigit || c != '.';
        number += static_cast<char>(c);
        cur.Take();
    }
    if (!anyDigit)
        return 0;

    const int mark = cur.Peek();
    if (mark == 'E' || mark == 'e' || mark == 'D' || mark == 'd') {
        cur.Take();
        bool negative = false;
        if (cur.Peek() == '-' || cur.Peek() == '+') {
            negative = cur.Peek() == '-';
            cur.Take();
        }
        long long exponent = 0;
        bool expDigit = false;
        for (int c = cur.Peek(); c >= '0' && c <= '9'; c = cur.Peek()) {
            expDigit = true;
            // Anything this large is far past the double range either way.
            exponent = std::min(exponent * 10 + (c - '0'), 1000000000LL);
            cur.Take();
        }
        if (expDigit) {
            number += negative ? "e-" : "e";
            number += std::to_string(exponent);
        }
    }
    return DecimalValue(number);
}

double RoundHalfEven(double value, int decimals)
{
    Num scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    const Num scaled = Num(value) * scale;
    // The default rounding mode sends exact halves to the even neighbour.
    return (Num(std::nearbyint(scaled.value())) / scale).value();
}

Int16 ToInt16(double value)
{
    return RoundedTo<std::int16_t>(value);
}

Int32 ToInt32(double value)
{
    return RoundedTo<std::int32_t>(value);
}

double FloorNumber(double value)
{
    return std::floor(value);
}

namespace {

// Digits as plain text or in the exponent form ("1.5E-20"), sign in front.
void AppendDigitsText(std::string& target, bool negative, const char* digits, int count, int e,
                      bool exponentForm, char mark)
{
    // At most 17 digits, 15 zeros before them or 17 places, and three exponent digits.
    char text[64];
    char* out = text;
    const auto put = [&out](const char* from, int n) { out = std::copy_n(from, n, out); };
    const auto zeros = [&out](int n) { out = std::fill_n(out, n, '0'); };
    if (negative)
        *out++ = '-';
    if (exponentForm) {
        *out++ = digits[0];
        if (count > 1) {
            *out++ = '.';
            put(digits + 1, count - 1);
        }
        *out++ = mark;
        *out++ = e < 0 ? '-' : '+';
        const int a = e < 0 ? -e : e;
        if (a < 10)
            *out++ = '0';
        out = std::to_chars(out, text + sizeof text, a).ptr;
    } else if (e < 0) {
        put("0.", 2);
        zeros(-e - 1);
        put(digits, count);
    } else {
        const int whole = e + 1;
        if (count <= whole) {
            put(digits, count);
            zeros(whole - count);
        } else {
            put(digits, whole);
            *out++ = '.';
            put(digits + whole, count - whole);
        }
    }
    target.append(text, out);
}

// How many of the digits are left without trailing zeros.
int SignificantCount(const char* digits, int count)
{
    while (count > 1 && digits[count - 1] == '0')
        --count;
    return count;
}

} // namespace

void AppendNumberText(std::string& out, double value)
{
    if (value == 0.0 || !std::isfinite(value)) {
        out += '0';
        return;
    }
    const Digits15 d = SignificantDigits(std::fabs(value));
    const int count = SignificantCount(d.digits, 15);
    const int e = d.exponent;
    const bool exponentForm = e >= 15 || (e < 0 && (-e - 1) + count > 15);
    AppendDigitsText(out, value < 0, d.digits, count, e, exponentForm, 'E');
}

std::string NumberToText(double value)
{
    std::string text;
    AppendNumberText(text, value);
    return text;
}

std::string GeneralText(double value, int precision)
{
    if (value == 0.0 || !std::isfinite(value)) {
        char buf[32];
        const auto r =
            std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, precision);
        return std::string(buf, r.ptr);
    }
    const LeadingDigits d = RoundedDigits(value, precision);
    const int e = d.exponent;
    std::string text;
    AppendDigitsText(text, value < 0, d.digits, SignificantCount(d.digits, precision), e,
                     e < -4 || e >= precision, 'e');
    return text;
}

std::string IntegerToText(long long value)
{
    return std::to_string(value);
}

std::string SignedIntegerText(long long value)
{
    std::string out(value < 0 ? 0 : 1, ' ');
    out += std::to_string(value);
    return out;
}

std::string FormatPattern(double value, std::string_view pattern)
{
    std::string text;
    AppendPattern(text, value, pattern);
    return text;
}

void AppendPattern(std::string& out, double value, std::string_view pattern)
{
    const std::size_t pointAt = pattern.find('.');
    const int minWhole =
        static_cast<int>(pointAt == std::string_view::npos ? pattern.size() : pointAt);
    const int decimals =
        pointAt == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - pointAt - 1);

    // Rounding works on the decimal digits the text form shows, not on the binary value.
    // The value times 10^decimals as whole digits: digits[0, length), then pad zeros. The
    // first digit is never a zero, so no digits at all means zero.
    char digits[24];
    int length = 0;
    std::size_t pad = 0;
    const double magnitude = std::fabs(value);
    if (magnitude < 1e15 && magnitude >= 1 && magnitude == std::trunc(magnitude)) {
        // A whole number shows all its digits among the fifteen, so nothing rounds.
        length = static_cast<int>(
            std::to_chars(digits, digits + sizeof digits, static_cast<long long>(magnitude)).ptr -
            digits);
        pad = static_cast<std::size_t>(decimals);
    } else if (value != 0.0 && std::isfinite(value)) {
        const Digits15 d = SignificantDigits(magnitude);
        const int keep = d.exponent + 1 + decimals;
        if (keep >= 15) {
            std::copy_n(d.digits, 15, digits);
            length = 15;
            pad = static_cast<std::size_t>(keep - 15);
        } else if (keep >= 0) {
            std::copy_n(d.digits, keep, digits);
            length = keep;
            if (d.digits[keep] >= '5') {
                int i = keep - 1;
                for (; i >= 0 && digits[i] == '9'; --i)
                    digits[i] = '0';
                if (i < 0) {
                    std::copy_backward(digits, digits + length, digits + length + 1);
                    digits[0] = '1';
                    ++length;
                } else {
                    ++digits[i];
                }
            }
        }
    }
    const bool zero = length == 0;

    // Leading zeros up to the whole digits the pattern asks for, and at least one.
    const auto places = static_cast<std::size_t>(decimals);
    const std::size_t shown = static_cast<std::size_t>(length) + pad;
    const std::size_t total =
        std::max({shown, static_cast<std::size_t>(minWhole) + places, places + 1});
    const std::size_t lead = total - shown;
    out.reserve(out.size() + total + 2);
    if (value < 0 && !zero)
        out += '-';
    for (std::size_t i = 0; i < total; ++i) {
        if (i == total - places)
            out += '.';
        const std::size_t at = i - lead; // wraps for the leading zeros
        out += i >= lead && at < static_cast<std::size_t>(length) ? digits[at] : '0';
    }
}

std::string UpperCase(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        c = static_cast<char>(detail::kUpperBytes[static_cast<unsigned char>(c)]);
    return out;
}

std::string TrimBlanks(std::string_view text)
{
    return std::string(TrimmedView(text));
}

std::string TrimLeftBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return std::string(text);
}

std::string TrimRightBlanks(std::string_view text)
{
    // A text of blanks only finds npos, and npos + 1 is 0: nothing is left.
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string LeftPart(std::string_view text, long long count)
{
    if (count < 0)
        Fail(err::InvalidCall);
    return std::string(text.substr(0, static_cast<std::size_t>(count)));
}

std::string RightPart(std::string_view text, long long count)
{
    if (count < 0)
        Fail(err::InvalidCall);
    const std::size_t n = std::min(text.size(), static_cast<std::size_t>(count));
    return std::string(text.substr(text.size() - n));
}

std::string MiddlePart(std::string_view text, long long start, long long count)
{
    if (start < 1 || count < 0)
        Fail(err::InvalidCall);
    if (static_cast<unsigned long long>(start) > text.size())
        return "";
    return std::string(
        text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count)));
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (detail::kUpperBytes[static_cast<unsigned char>(a[i])] !=
            detail::kUpperBytes[static_cast<unsigned char>(b[i])])
            return false;
    return true;
}

} // namespace tos
