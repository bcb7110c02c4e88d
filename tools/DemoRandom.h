#pragma once
// A small deterministic random source for the demo data. Its sequence is fixed by
// the seed alone (no standard distribution, whose output differs between libraries),
// so a seed always gives the same files.
#include <QtGlobal>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace demo {

class DemoRandom {
public:
    explicit DemoRandom(quint64 seed)
        : state_(seed) {}

    // A seed for an independent stream, derived from a parent seed and some tags
    // (account number, bill month), so one bill can be written without the others.
    static quint64 derive(quint64 seed, std::initializer_list<quint64> tags) {
        quint64 s = seed ^ 0x6a09e667f3bcc908ULL;
        for (quint64 t : tags) {
            s = mix(s + 0x9e3779b97f4a7c15ULL + t);
        }
        return s;
    }

    quint64 next() {
        state_ += 0x9e3779b97f4a7c15ULL;
        return mix(state_);
    }
    // 0 <= result < n; n must be positive.
    int below(int n) { return int(next() % quint64(n)); }
    std::int64_t below64(std::int64_t n) { return std::int64_t(next() % quint64(n)); }
    // lo <= result <= hi
    int between(int lo, int hi) { return lo + below(hi - lo + 1); }
    std::int64_t between64(std::int64_t lo, std::int64_t hi) { return lo + below64(hi - lo + 1); }
    bool percent(int p) { return below(100) < p; }
    bool perMille(int p) { return below(1000) < p; }
    template <typename T> const T& pick(const std::vector<T>& items) {
        return items[size_t(below(int(items.size())))];
    }
    template <typename T, size_t N> const T& pick(const T (&items)[N]) {
        return items[size_t(below(int(N)))];
    }

private:
    static quint64 mix(quint64 z) {
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    quint64 state_;
};

} // namespace demo
