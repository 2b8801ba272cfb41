#pragma once

#include "tests/testhome.h"

#include <QTest>

/// One test class of a program that holds several. The program runs the one that its first argument
/// names and gives Qt Test the others; see testprogram.cpp.
class TestRegistration
{
public:
    using Run = int (*)(int argc, char **argv);

    /// Adds the class that the source \a file holds, under the file's name without ".cpp".
    TestRegistration(const char *file, Run run);
};

/// Adds a test class to its program, with the application object that it runs under.
#define BRISEL_TEST(ApplicationClass, TestClass)                                                   \
    static const TestRegistration registrationOf##TestClass(__FILE__, [](int argc, char **argv) {  \
        ApplicationClass application(argc, argv);                                                  \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    });
