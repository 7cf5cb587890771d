#pragma once

#include "forms/controls.h"

namespace tos {

// The "Combine Scripts" window as a model. Loaded hidden at start-up, shown
// modally over the main form while the user combines scripts.
struct CompilerForm {
    CompilerForm();
    CompilerForm(const CompilerForm&) = delete;
    CompilerForm& operator=(const CompilerForm&) = delete;

    std::string caption = "Combine Scripts";
    int left = 0;
    int top = 0;
    int widthTwips = 6015;
    int heightTwips = 5325;
    bool loaded = false;
    bool visible = false;
    int mousePointer = 0;
    ViewNotifier formView;
    // Asks the view to show the form modally; the model alone just marks it visible.
    std::function<void()> showModal;

    Frame frameCompiledMaxScript;
    ListBox lstMaxScripts; // unsorted, without a row limit
    Button btnAddFile;
    Button btnSaveAs;
    Button btnDone;
};

} // namespace tos
