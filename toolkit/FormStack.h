#pragma once

#include <vector>

namespace toolkit {

class Form;

/// The forms that are shown on the stage, one in front of the other. A modal form keeps those
/// behind it from being used.
class FormStack {
public:
    /// Shows a form in front of those of its layer.
    void Enter(Form& form);
    /// Takes out a form that was hidden, and gives the keyboard focus back to what is now in front.
    void Leave(Form& form);

    /// The form that has the keyboard focus, or else the one in front; null if none is shown.
    Form* Current() const;

    /// Gives the focus to the next form that can be used.
    void FocusNext();

private:
    void Arrange();

    std::vector<Form*> mForms; // the last one in front
};

} // namespace toolkit
