#pragma once

#include <functional>

#include "forms/compiler_form.h"
#include "forms/main_form.h"
#include "forms/run_state.h"
#include "forms/scene_map_form.h"
#include "support/platform.h"
#include "support/profile.h"
#include "support/recording_platform.h"

namespace tos {

// Everything one run of the program shares: the platform services, the run
// state, the two forms and the profile reader's cache. Routines take it as their
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
        int& held = form == FormId::Main ? main.mousePointer : compiler.mousePointer;
        held = pointer;
        platform.SetMousePointer(form, pointer);
        (form == FormId::Main ? main.formView : compiler.formView).Notify();
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
    SceneMapForm sceneMap;
};

} // namespace tos
