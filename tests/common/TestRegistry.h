#pragma once
// Lets every test class of an area register itself, so one executable per area
// runs them all without a hand-kept list.
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace testing {

using TestFactory = std::function<std::unique_ptr<QObject>()>;

inline std::vector<std::pair<const char*, TestFactory>>& registry() {
    static std::vector<std::pair<const char*, TestFactory>> tests;
    return tests;
}

struct Registrar {
    Registrar(const char* name, TestFactory factory) { registry().emplace_back(name, std::move(factory)); }
};

} // namespace testing

#define VANTREL_TEST(Class)                                                                                  \
    static const testing::Registrar registrar_##Class(#Class, [] { return std::make_unique<Class>(); })
