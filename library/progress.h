#pragma once

/// What a workflow knows of the display that shows its advance.
class Progress
{
public:
    virtual ~Progress() = default;

    /// Shows that \a value steps are done, in numbers and on the bar.
    virtual void setValue(int value) = 0;
    /// True once the user has pressed "Interrompi" or the program was asked to end.
    virtual bool isCanceled() const = 0;
    /// Lets pending events through: paints the display, and takes a click on "Interrompi".
    virtual void breathe() = 0;

protected:
    Progress() = default;
    Progress(const Progress &) = default;
    Progress &operator=(const Progress &) = default;
};
