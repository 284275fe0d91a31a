#include "tablehub/TableHub.h"

#include "ui/MessageBoxes.h"

void TableHub::OnInit() {
    Utility().SetParentWindow(Handle());
    Read();
    Show();
}

void TableHub::OnOk() { Close(questions_.onSave, IDOK); }

void TableHub::OnCancel() { Close(changed_ ? questions_.onCancel : nullptr, IDCANCEL); }

// question: whether to write first; null: nothing is written.
void TableHub::Close(const char* question, INT_PTR result) {
    using kiro::ui::Answer;
    const Answer answer =
        question ? kiro::ui::Question(Handle(), question, questions_.caption, kiro::ui::Icon::kQuestion) : Answer::kNo;
    // A question that was broken off is no answer: what broke it off ends the dialog as well.
    if (answer == Answer::kNone || (answer == Answer::kYes && !Write())) return;
    End(result);
}
