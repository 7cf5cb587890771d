#pragma once

#include <functional>

#include "forms/batch_form.h"
#include "forms/compiler_form.h"
#include "forms/main_form.h"
#include "forms/run_state.h"
#include "forms/scene_map_form.h"
#include "support/platform.h"
#include "support/profile.h"
#include "support/recording_platform.h"

namespace tos {

// Everything one run of the program shares: the platform services, the run
// state, the forms and the profile reader's cache. Routines take it as their
// context; there are no globals.
struct App {
    explicit App(Platform& p) : boxes(p), platform(boxes), profiles(boxes) {}
    App(const App&) = delete;
    App& operator=(const App&) = delete;

    // Shows a box with one OK button (default title unless given).
    void Message(const std::string& text) { platform.ShowMessage(MessageBox{text}); }

    // Sets a form's mouse pointer (kPointerHourglass while it works, kPointerDefault after).
    void SetMousePointer(FormId form, int pointer)
    {
        auto set = [&](auto& shown) {
            shown.mousePointer = pointer;
            platform.SetMousePointer(form, pointer);
            shown.formView.Notify();
        };
        if (form == FormId::Main)
            set(main);
        else if (form == FormId::Compiler)
            set(compiler);
        else
            set(batch);
    }

    // Ends the process; the desktop program leaves its event loop here.
    std::function<void()> endProcess;

    // Every service goes through boxes, so a batch run can keep the message
    // boxes of its steps for its summary.
    RecordingPlatform boxes;
    Platform& platform;
    ProfileFiles profiles;
    RunState state;
    MainForm main;
    CompilerForm compiler;
    BatchForm batch; // Process All
    SceneMapForm sceneMap;
};

} // namespace tos
