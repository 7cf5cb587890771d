// Process All opened on a scene of 5,000 distinct objects, in the Qt window on
// the offscreen platform: from the press of the main form's button until the
// table shows its last row, scrolled to and read back. Target: 0.5 s.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTableView>

#include "batch/batch_events.h"
#include "common/fake_platform.h"
#include "forms/app.h"
#include "gui/batch_window.h"
#include "gui/main_window.h"
#include "scene_generator.h"
#include "shell/startup.h"

namespace {

// Lets the window catch up as its event loop would, scrolls to the end and paints.
// False unless the last line is in sight and reads as the model's last row.
bool LastRowShown(QTableView* view, const tos::BatchForm& batch)
{
    QCoreApplication::sendPostedEvents();
    view->scrollToBottom();
    view->viewport()->repaint();
    const int last = view->model()->rowCount() - 1;
    const QModelIndex index = view->model()->index(last, 0);
    return last >= 0 && static_cast<std::size_t>(last) + 1 == batch.rows.size() &&
           view->viewport()->rect().intersects(view->visualRect(index)) &&
           index.data().toString().toStdString() == batch.rows.back()->selection;
}

void BM_ProcessAllOpened(benchmark::State& state)
{
    tos::bench::SceneLayout layout;
    layout.models = 5000;
    layout.stems = 5000;
    layout.stemsInTurn = true;
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    const tos::bench::GeneratedProject project("batch-window", layout);
    tos::test::FakePlatform platform;
    platform.programFolder = std::string(TOS_SOURCE_DIR) + "/resources";
    tos::App app(platform);
    tos::gui::MainWindow main(app);
    tos::gui::BatchWindow window(app.batch, &main);
    tos::ConnectBatchEvents(app);
    // Shown without its modal loop, which would wait for a person.
    app.batch.showModal = [&window] { window.show(); };
    tos::Main(app);
    platform.dialogAnswers = {project.Prj()};
    app.main.btnBrowseProjectFile.Click.Fire();
    auto* view = window.findChild<QTableView*>("tblRows");

    for (auto _ : state) {
        app.main.btnProcessAll.Click.Fire();
        if (!LastRowShown(view, app.batch)) {
            state.SkipWithError("the table does not show its last row");
            return;
        }
        state.PauseTiming();
        app.batch.visible = false;
        window.hide();
        state.ResumeTiming();
    }
    if (!platform.messages.empty())
        state.SkipWithError(("message box: " + platform.messages.front().text).c_str());
    state.counters["rows"] = static_cast<double>(app.batch.rows.size());
}
BENCHMARK(BM_ProcessAllOpened)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qt(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
