#include "data/Value.h"

#include "data/Conversions.h"
#include "data/RunTimeFault.h"

namespace tb {

bool Value::AsBool() const {
    if (IsNull())
        return false;
    if (IsBool())
        return std::get<bool>(v_);
    if (IsText()) {
        const auto& s = std::get<std::string>(v_);
        if (s == "True" || s == "true")
            return true;
        if (s == "False" || s == "false")
            return false;
    }
    return AsDouble() != 0.0;
}

std::int64_t Value::AsInt() const {
    if (IsInt())
        return std::get<std::int64_t>(v_);
    if (IsBool())
        return std::get<bool>(v_) ? 1 : 0;
    const double d = RoundHalfEven(AsDouble());
    // Written so that a NaN, which compares false with everything, overflows too.
    if (!(d >= -9.2e18 && d <= 9.2e18))
        throw RunTimeFault::Overflow();
    return static_cast<std::int64_t>(d);
}

double Value::AsDouble() const {
    return std::visit(
        [](const auto& x) -> double {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return 0.0;
            } else if constexpr (std::is_same_v<T, bool>) {
                return x ? 1.0 : 0.0;
            } else if constexpr (std::is_same_v<T, std::int64_t>) {
                return static_cast<double>(x);
            } else if constexpr (std::is_same_v<T, double>) {
                return x;
            } else if constexpr (std::is_same_v<T, std::string>) {
                if (x.empty())
                    throw RunTimeFault::TypeMismatch();
                auto n = ParseNumber(x);
                if (!n)
                    throw RunTimeFault::TypeMismatch();
                return *n;
            } else {
                throw RunTimeFault::TypeMismatch();
            }
        },
        v_);
}

DateTime Value::AsDate() const {
    if (IsDate())
        return std::get<DateTime>(v_);
    if (IsText()) {
        const auto& s = std::get<std::string>(v_);
        if (auto t = ParseStoredDateTime(s))
            return *t;
        if (auto t = ParseTypedDateTime(s))
            return *t;
    }
    throw RunTimeFault::TypeMismatch();
}

std::string Value::ToText() const {
    return tb::ToText(*this);
}

}  // namespace tb
