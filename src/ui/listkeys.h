#pragma once

#include <functional>

class QButtonGroup;
class QListWidget;
class QPushButton;

// What keys do on lists and options beyond what Qt lets them do.

// Lets Enter on the list press the button that \a button gives at that moment, if any.
void pressOnEnter(QListWidget *list, const std::function<QPushButton *()> &button);

// Goes back to the option \a id after another was chosen, by a click or an arrow key: checked, and
// where the keys go.
void keepOption(QButtonGroup *group, int id);
