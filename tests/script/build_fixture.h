#pragma once

#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"

namespace tos::test {

// A form after a load of project "Valley" in a scratch folder, built by hand so
// the builders can be tested without the project loader.
struct BuildFixture {
    FakePlatform platform;
    ScratchDir dir;
    App app{platform};

    BuildFixture();

    // Writes the scene beside the project.
    void Scene(const std::string& bytes);
    // Copies the scene of a case folder under the test data.
    void SceneFromCase(const std::string& caseName);
    void Rows(ListBox MainForm::*list, const std::vector<std::string>& rows);
    std::string Written(const std::string& fileName) const { return dir.File(fileName); }
    // The rows of List2 as a file holds them.
    std::string ScriptBytes() const;
};

std::string CaseFile(const std::string& caseName, const std::string& fileName);
std::vector<std::string> CaseRows(const std::string& caseName);

} // namespace tos::test
