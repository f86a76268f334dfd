#include "toolkit/FormStack.h"

#include "toolkit/Form.h"

#include <QApplication>
#include <algorithm>

namespace toolkit {

void FormStack::Enter(Form& form) {
    std::erase(mForms, &form);
    const auto place = std::ranges::find_if(
        mForms, [&](const Form* other) { return other->GetLayer() > form.GetLayer(); });
    mForms.insert(place, &form);
    Arrange();
}

void FormStack::Leave(Form& form) {
    std::erase(mForms, &form);
    Arrange();
    if (Form* current = Current())
        current->ResumeFocus();
}

Form* FormStack::Current() const {
    const QWidget* focus = QApplication::focusWidget();
    const auto withFocus = std::ranges::find_if(mForms, [focus](const Form* form) {
        return form->isEnabled() && (form == focus || form->isAncestorOf(focus));
    });
    if (withFocus != mForms.end())
        return *withFocus;
    return mForms.empty() ? nullptr : mForms.back();
}

void FormStack::FocusNext() {
    const auto now = std::ranges::find(mForms, Current());
    if (now == mForms.end())
        return;
    std::vector<Form*> others(now + 1, mForms.end());
    others.insert(others.end(), mForms.begin(), now);
    const auto next = std::ranges::find_if(others, [](Form* form) { return form->isEnabled(); });
    if (next != others.end())
        (*next)->ResumeFocus();
}

void FormStack::Arrange() {
    for (Form* form : mForms)
        form->raise();
    bool blocked = false;
    for (auto form = mForms.rbegin(); form != mForms.rend(); ++form) {
        (*form)->SetBlocked(blocked);
        blocked = blocked || (*form)->IsModal();
    }
}

} // namespace toolkit
