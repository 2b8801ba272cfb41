#pragma once

#include "tests/testhome.h"

#include <QTest>

namespace brisel
{

/// One test class of a program with several. The program runs the class that its first argument
/// names and passes the other arguments to Qt Test; see testprogram.cpp.
class TestRegistration
{
public:
    using Run = int (*)(int argc, char **argv);

    /// Adds the test class of the source \a file, under the file's name without ".cpp".
    TestRegistration(const char *file, Run run);
};

/// Adds a test class to its program, with the class of its application object.
#define BRISEL_TEST(ApplicationClass, TestClass)                                                   \
    static const TestRegistration registrationOf##TestClass(__FILE__, [](int argc, char **argv) {  \
        ApplicationClass application(argc, argv);                                                  \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    });

} // namespace brisel
