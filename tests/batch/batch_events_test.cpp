#include <gtest/gtest.h>

#include "batch/batch_events.h"
#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "forms/batch_form.h"
#include "shell/startup.h"

namespace tos {
namespace {

// Closing Process All with changes that no batch list keeps asks what to do with them.
TEST(BatchWindowModel, ClosingWithChangesSavesDiscardsOrStays)
{
    struct Case {
        const char* what;
        bool changed;
        MessageAnswer answer;
        const char* saveAs; // the save dialog's answer
        bool closed;
        bool saved;
    };
    // clang-format off
    const Case cases[] = {
        {.what = "no change",       .changed = false, .answer = MessageAnswer::Cancel,  .saveAs = "",  .closed = true,  .saved = false},
        {.what = "discard",         .changed = true,  .answer = MessageAnswer::Discard, .saveAs = "",  .closed = true,  .saved = false},
        {.what = "cancel",          .changed = true,  .answer = MessageAnswer::Cancel,  .saveAs = "",  .closed = false, .saved = false},
        {.what = "save",            .changed = true,  .answer = MessageAnswer::Save,    .saveAs = "b", .closed = true,  .saved = true},
        {.what = "save, no file",   .changed = true,  .answer = MessageAnswer::Save,    .saveAs = "",  .closed = false, .saved = false},
    };
    // clang-format on
    for (const Case& c : cases) {
        test::ScratchDir dir;
        test::FakePlatform platform;
        platform.programFolder = std::string(TOS_SOURCE_DIR) + "/resources";
        App app(platform);
        BatchForm& batch = app.batch;
        ConnectBatchEvents(app);
        Main(app);
        dir.Write("Valley.scn",
                  test::ReadBytes(std::string(TOS_SOURCE_DIR) + "/examples/Valley/Valley.scn"));
        platform.dialogAnswers = {dir.Write("Valley.prj", "")};
        app.main.btnBrowseProjectFile.Click.Fire();
        app.main.btnProcessAll.Click.Fire();
        if (c.changed)
            batch.rows.front()->txtMaxFile.SetText("T.max");
        platform.ClearMessages();
        platform.answers = {c.answer};
        const std::string file = dir.File("saved.tosbatch");
        platform.dialogAnswers = {*c.saveAs ? file : ""};
        batch.btnClose.Click.Fire();
        EXPECT_EQ(!batch.visible, c.closed) << c.what;
        EXPECT_EQ(platform.messages.size(), c.changed ? 1u : 0u) << c.what;
        EXPECT_EQ(std::filesystem::exists(file), c.saved) << c.what;
    }
}

} // namespace
} // namespace tos
