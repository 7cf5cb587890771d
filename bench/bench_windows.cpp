// The Qt windows on the offscreen platform: how long a person waits from a
// button press until the list shows its result.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListView>
#include <QTableView>
#include <algorithm>
#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <vector>

#include "batch/batch_events.h"
#include "forms/app.h"
#include "gui/batch_window.h"
#include "gui/compiler_window.h"
#include "gui/main_window.h"
#include "gui/qt_platform.h"
#include "process_timer.h"
#include "scene_generator.h"
#include "shell/startup.h"

namespace {

// The Qt platform with the file dialogs answered from a queue and the settings
// kept in memory. A message box would wait for a person, so it is recorded.
class BenchPlatform : public tos::gui::QtPlatform {
public:
    explicit BenchPlatform(std::string programFolder) : programFolder_(std::move(programFolder))
    {
        std::ofstream(programFolder_ + "/TolvarineObjectScripter.ini", std::ios::binary)
            << "[MiscStockObjects]\r\nTotalItems=0\r\n";
    }

    std::string ShowFileDialog(const tos::FileDialogRequest&) override
    {
        std::string answer = answers.empty() ? "" : answers.front();
        if (!answers.empty())
            answers.pop_front();
        return answer;
    }
    void ShowMessage(const tos::MessageBox& box) override { messages.push_back(box.text); }
    std::string ReadSetting(const std::string& key, const std::string& name) override
    {
        return settings[key + "\\" + name];
    }
    void WriteSetting(const std::string& key, const std::string& name,
                      const std::string& value) override
    {
        settings[key + "\\" + name] = value;
    }
    std::string ProgramFolder() override { return programFolder_; }

    std::deque<std::string> answers;
    std::vector<std::string> messages;
    std::map<std::string, std::string> settings;

private:
    std::string programFolder_;
};

// Lets the window catch up as its event loop would, then paints the list. False
// unless the list shows all rows from the first one.
bool ShownFromTop(QListView* list, std::size_t rows)
{
    QCoreApplication::sendPostedEvents();
    list->viewport()->repaint();
    return static_cast<std::size_t>(list->model()->rowCount()) == rows &&
           list->indexAt(QPoint(1, 1)).row() == 0;
}

bool Failed(benchmark::State& state, const BenchPlatform& platform)
{
    if (platform.messages.empty())
        return false;
    state.SkipWithError(("message box: " + platform.messages.front()).c_str());
    return true;
}

// Process for one object of 10,000 placements, every one turned about all three
// axes, in a 30,000-model scene, until the script list shows the new script.
void BM_ProcessUntilShown(benchmark::State& state)
{
    tos::bench::SceneLayout layout;
    layout.stems = 3;
    layout.stemsInTurn = true;
    layout.stockShare = 0;
    layout.mainTileShare = 1.0;
    layout.tiltedShare = 1.0;
    const tos::bench::GeneratedProject project("windows-process", layout);
    BenchPlatform platform(project.Folder());
    tos::App app(platform);
    tos::gui::MainWindow window(app);
    platform.SetFormWidget(tos::FormId::Main, &window);
    tos::Main(app);
    platform.answers = {project.Prj()};
    app.main.btnBrowseProjectFile.Click.Fire();
    app.main.txtMaxFile.SetText("C:\\Models\\Stem.max");
    app.main.chkUseMaxName.SetValue(1);
    app.main.comboSelectObject.SetText("Stem001");
    auto* list = window.findChild<QListView*>("List2");
    if (Failed(state, platform))
        return;

    std::vector<double> times;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        app.main.btnProcess.Click.Fire();
        if (!ShownFromTop(list, app.main.List2.RowCount())) {
            state.SkipWithError("the script list does not show the script");
            return;
        }
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    // The floor program on the same scene, in the same run; its ratio has a goal of 3.
    if (const std::string floor = tos::bench::FloorProgram(); !floor.empty()) {
        std::sort(times.begin(), times.end());
        const double floorMs = tos::bench::MedianRun({floor, project.Scene()}).ms;
        state.counters["floor_ms"] = floorMs;
        state.counters["floor_ratio"] = times[times.size() / 2] / floorMs;
    }
    if (Failed(state, platform))
        return;
    const auto& rows = app.main.List2.Rows();
    // The merged object and one "copy" row for each further placement.
    state.counters["placements"] =
        static_cast<double>(1 + std::count_if(rows.begin(), rows.end(), [](const std::string& row) {
                                return row.starts_with("copy $");
                            }));
    state.counters["rows"] = static_cast<double>(app.main.List2.RowCount());
}
BENCHMARK(BM_ProcessUntilShown)->Unit(benchmark::kMillisecond)->UseRealTime();

// Three scripts of 20,000 lines added to the combiner until its list shows them.
void BM_CombineUntilShown(benchmark::State& state)
{
    const auto folder = std::filesystem::temp_directory_path() / "tos-bench-windows-combine";
    std::filesystem::create_directories(folder);
    std::vector<std::string> scripts;
    for (int s = 1; s <= 3; ++s) {
        const std::string path = (folder / ("Script" + std::to_string(s) + ".ms")).string();
        std::ofstream out(path, std::ios::binary);
        for (int line = 1; line <= 20000; ++line)
            out << "$Stem00" << s << "_" << line
                << ".pos = [-1234.567890,987.654321,12.500000]\r\n";
        scripts.push_back(path);
    }
    BenchPlatform platform(folder.string());
    tos::App app(platform);
    tos::gui::MainWindow window(app);
    tos::gui::CompilerWindow compiler(app, &window);
    platform.SetFormWidget(tos::FormId::Main, &window);
    platform.SetFormWidget(tos::FormId::Compiler, &compiler);
    tos::Main(app);
    // Shown without its modal loop, which would wait for a person.
    compiler.show();
    auto* list = compiler.findChild<QListView*>("lstMaxScripts");

    for (auto _ : state) {
        state.PauseTiming();
        app.compiler.lstMaxScripts.Clear();
        ShownFromTop(list, 0);
        state.ResumeTiming();
        for (const std::string& script : scripts) {
            platform.answers.push_back(script);
            app.compiler.btnAddFile.Click.Fire();
        }
        if (!ShownFromTop(list, 60006)) {
            state.SkipWithError("the combiner's list does not show the three scripts");
            break;
        }
    }
    Failed(state, platform);
    state.counters["rows"] = static_cast<double>(app.compiler.lstMaxScripts.RowCount());
    std::error_code ec;
    std::filesystem::remove_all(folder, ec);
}
BENCHMARK(BM_CombineUntilShown)->Unit(benchmark::kMillisecond)->UseRealTime();

// Process All opened on a scene of 5,000 distinct objects: from the press of the
// main form's button until the table shows its last row, scrolled to and read
// back. Target: 0.5 s.
// Lets the window catch up, scrolls to the end and paints.
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
    const tos::bench::GeneratedProject project("batch-window", tos::bench::DistinctObjects(5000));
    BenchPlatform platform(project.Folder());
    tos::App app(platform);
    tos::gui::MainWindow main(app);
    tos::gui::BatchWindow window(app.batch, &main);
    tos::ConnectBatchEvents(app);
    // Shown without its modal loop, which would wait for a person.
    app.batch.showModal = [&window] { window.show(); };
    tos::Main(app);
    platform.answers = {project.Prj()};
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
    Failed(state, platform);
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
