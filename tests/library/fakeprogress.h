#pragma once

#include "library/progress.h"

#include <QList>

#include <functional>

/// A progress that remembers what it was shown, and is cancelled when a test says so.
class FakeProgress : public Progress
{
public:
    void setValue(int value) override
    {
        values.append(value);
        if (onValue)
            onValue(value);
    }
    bool isCanceled() const override { return canceled; }
    void breathe() override
    {
        ++breaths;
        if (onBreath)
            onBreath();
    }

    QList<int> values;
    int breaths = 0;
    bool canceled = false;
    std::function<void(int)> onValue;
    std::function<void()> onBreath;
};
