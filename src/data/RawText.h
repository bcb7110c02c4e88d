#pragma once
// Hash containers of texts that a row's raw bytes look up without a copy: a scan of
// hundreds of thousands of rows makes no string of its own per row.
#include <QByteArrayView>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

struct TextHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};
template <typename T> using ByText = std::unordered_map<std::string, T, TextHash, std::equal_to<>>;
using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;

inline std::string_view viewOf(QByteArrayView bytes) {
    return {bytes.data(), size_t(bytes.size())};
}
