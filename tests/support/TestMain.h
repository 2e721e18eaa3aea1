#pragma once

#include <QObject>
#include <functional>

// Test classes register themselves; one executable per folder runs them all in turn.
// ZARVEL_TEST_CLASS=Name runs only that class (its own arguments then select functions).
void registerTestClass(const char* name, std::function<QObject*()> factory);

#define ZARVEL_TEST(Class)                                                                                   \
    static const bool registered_##Class = [] {                                                              \
        registerTestClass(#Class, [] { return new Class; });                                                 \
        return true;                                                                                         \
    }();
