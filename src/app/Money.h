#pragma once
// An exact amount of money: a whole number of ten-thousandths of a pound in 64 bits,
// as the host product's currency columns hold it.
#include <QString>
#include <compare>
#include <cstdint>
#include <optional>

class Money {
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Money() = default;
    static constexpr Money fromRaw(std::int64_t tenThousandths) {
        Money m;
        m.raw_ = tenThousandths;
        return m;
    }
    static constexpr Money fromPounds(std::int64_t pounds) { return fromRaw(pounds * Scale); }
    // Rounds half to even at the fourth decimal, as a currency conversion does.
    static Money fromDouble(double value);
    // Exact parse of plain decimal text ("-12.5", "1234.5678", "£1,234.50" is not accepted).
    // More than four decimals round half to even. Empty or malformed text gives nullopt.
    static std::optional<Money> parse(const QString& text);

    constexpr std::int64_t raw() const { return raw_; }
    double toDouble() const { return static_cast<double>(raw_) / Scale; }
    // Plain decimal text with four decimals and no grouping: "-1234.5000".
    QString toPlainString() const;

    constexpr Money operator+(Money o) const { return fromRaw(raw_ + o.raw_); }
    constexpr Money operator-(Money o) const { return fromRaw(raw_ - o.raw_); }
    constexpr Money operator-() const { return fromRaw(-raw_); }
    Money& operator+=(Money o) {
        raw_ += o.raw_;
        return *this;
    }
    Money& operator-=(Money o) {
        raw_ -= o.raw_;
        return *this;
    }
    constexpr auto operator<=>(const Money&) const = default;
    constexpr bool isZero() const { return raw_ == 0; }

private:
    std::int64_t raw_ = 0;
};
