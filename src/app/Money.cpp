#include "app/Money.h"

#include <cmath>
#include <limits>

namespace {

// Rounds a non-negative integer quotient half to even given the remainder; `beyond` says
// that nonzero digits followed those the remainder holds, so a seeming half is more.
std::int64_t roundHalfEven(std::int64_t quotient, std::int64_t remainder, std::int64_t divisor, bool beyond) {
    const std::int64_t twice = remainder * 2;
    if (twice > divisor || (twice == divisor && (beyond || (quotient % 2) != 0)))
        return quotient + 1;
    return quotient;
}

} // namespace

Money Money::fromDouble(double value) {
    const double scaled = value * Scale;
    // Outside the 64-bit range the conversion below is undefined: saturate; NaN is nothing.
    if (std::isnan(scaled))
        return Money();
    if (scaled >= 9.2e18)
        return fromRaw(std::numeric_limits<std::int64_t>::max());
    if (scaled <= -9.2e18)
        return fromRaw(std::numeric_limits<std::int64_t>::min());
    // The product can carry binary noise (0.125 * 10000 is exact, 1.00005 * 10000 is not);
    // decide the half case on the nearest representable decimal.
    double whole = std::floor(scaled);
    const double frac = scaled - whole;
    constexpr double eps = 1e-7;
    std::int64_t result = static_cast<std::int64_t>(whole);
    if (std::fabs(frac - 0.5) < eps) {
        if (result % 2 != 0)
            ++result;
    } else if (frac > 0.5) {
        ++result;
    }
    return fromRaw(result);
}

std::optional<Money> Money::parse(const QString& input) {
    const QString text = input.trimmed();
    if (text.isEmpty())
        return std::nullopt;
    int i = 0;
    bool negative = false;
    if (text[0] == QLatin1Char('-') || text[0] == QLatin1Char('+')) {
        negative = text[0] == QLatin1Char('-');
        ++i;
    }
    std::int64_t whole = 0;
    int wholeDigits = 0;
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / Scale / 10;
    for (; i < text.size() && text[i].isDigit(); ++i, ++wholeDigits) {
        if (whole > limit)
            return std::nullopt;
        whole = whole * 10 + text[i].digitValue();
    }
    std::int64_t frac = 0;
    int fracDigits = 0;
    std::int64_t beyond = 0; // the digits past the fourth, as a number
    std::int64_t beyondScale = 1;
    bool nonzeroPastBeyond = false;
    if (i < text.size() && text[i] == QLatin1Char('.')) {
        for (++i; i < text.size() && text[i].isDigit(); ++i, ++fracDigits) {
            if (fracDigits < 4) {
                frac = frac * 10 + text[i].digitValue();
            } else if (beyondScale < 1000000000000000LL) {
                beyond = beyond * 10 + text[i].digitValue();
                beyondScale *= 10;
            } else if (text[i] != QLatin1Char('0')) {
                nonzeroPastBeyond = true;
            }
        }
    }
    if (i != text.size() || (wholeDigits == 0 && fracDigits == 0))
        return std::nullopt;
    // The whole pounds, the four decimals and a rounding step must fit in 64 bits.
    if (whole > (std::numeric_limits<std::int64_t>::max() - Scale) / Scale)
        return std::nullopt;
    for (int d = fracDigits; d < 4; ++d)
        frac *= 10;
    std::int64_t raw = whole * Scale + frac;
    if (beyondScale > 1)
        raw = roundHalfEven(raw, beyond, beyondScale, nonzeroPastBeyond);
    return fromRaw(negative ? -raw : raw);
}

QString Money::toPlainString() const {
    const std::int64_t a = raw_ < 0 ? -raw_ : raw_;
    return QStringLiteral("%1%2.%3")
        .arg(raw_ < 0 ? QStringLiteral("-") : QString())
        .arg(a / Scale)
        .arg(a % Scale, 4, 10, QLatin1Char('0'));
}
