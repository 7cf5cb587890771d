#pragma once

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"

namespace tos::test {

inline std::string CaseFile(const std::string& caseName, const std::string& fileName)
{
    return std::string(TOS_TEST_DATA_DIR) + "/script/" + caseName + "/" + fileName;
}

inline std::vector<std::string> CaseRows(const std::string& caseName)
{
    std::istringstream in(ReadBytes(CaseFile(caseName, "rows.txt")));
    std::vector<std::string> rows;
    for (std::string line; std::getline(in, line);)
        rows.push_back(line);
    return rows;
}

// A form after a load of project "Valley" in a scratch folder, built by hand so
// the builders can be tested without the project loader.
struct BuildFixture {
    FakePlatform platform;
    ScratchDir dir;
    App app{platform};

    BuildFixture()
    {
        app.state.Pi = 4 * std::atan(1.0);
        app.state.SaveToFile = true;
        app.state.ScriptBasePath = dir.File("Valley");
        app.state.ScnFile = dir.File("Valley.scn");
        app.main.btnProcess.SetEnabled(true);
    }

    // Writes the scene beside the project.
    void Scene(const std::string& bytes) { dir.Write("Valley.scn", bytes); }
    // Copies the scene of a case folder under the test data.
    void SceneFromCase(const std::string& caseName)
    {
        Scene(ReadBytes(CaseFile(caseName, "Valley.scn")));
    }
    void Rows(ListBox MainForm::*list, const std::vector<std::string>& rows)
    {
        for (const std::string& row : rows)
            (app.main.*list).AddItem(row);
    }
    std::string Written(const std::string& fileName) const { return dir.File(fileName); }
    // The rows of List2 as a file holds them.
    std::string ScriptBytes() const
    {
        std::string bytes;
        for (const std::string& row : app.main.List2.Rows())
            bytes += row + "\r\n";
        return bytes;
    }
};

} // namespace tos::test
