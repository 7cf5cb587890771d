#pragma once

#include <memory>
#include <string>
#include <vector>

#include "common/fake_platform.h"
#include "common/scratch.h"
#include "forms/app.h"
#include "shell/startup.h"

namespace tos::test {

struct SceneModel {
    std::string value;    // key SLT
    std::string position; // key Position; "" leaves the key out
    long long number = 0; // section number; 0 = one more than the model before
};

// Scene text with CR LF line ends. An empty count, width or scale leaves that key out.
inline std::string SceneText(const std::vector<SceneModel>& models,
                             const std::string& count = "auto", const std::string& width = "5",
                             const std::string& scale = "3.0")
{
    std::string t = "[Environment]\r\n";
    t += width.empty() ? "" : "TerrainWidth=" + width + "\r\n";
    t += scale.empty() ? "" : "TerrainWidthScale=" + scale + "\r\n";
    t += "\r\n[StaticModels]\r\n";
    if (!count.empty())
        t += "NumberOfStaticModels=" + (count == "auto" ? std::to_string(models.size()) : count) +
             "\r\n";
    long long n = 0;
    for (const SceneModel& m : models) {
        n = m.number ? m.number : n + 1;
        t += "\r\n[Model" + std::to_string(n) + "]\r\nSLT=" + m.value + "\r\n";
        t += m.position.empty() ? "" : "Position=" + m.position + "\r\n";
        t += "LookVector=0,0,-1\r\nUpVector=0,1,0\r\n";
    }
    return t;
}

// A started program whose folder is a scratch folder.
struct LoadFixture {
    // The catalogue file is written beside the program unless it is "".
    explicit LoadFixture(const std::string& catalogue = "")
    {
        platform.programFolder = dir.Path().string();
        Restart(catalogue);
    }
    // Writes the catalogue file beside the program and starts again.
    void Restart(const std::string& catalogue)
    {
        if (!catalogue.empty())
            dir.Write("TolvarineObjectScripter.ini", catalogue);
        app = std::make_unique<App>(platform);
        Main(*app);
    }
    // Writes <name>.prj and, unless scene is null, <name>.scn, and chooses the project.
    void Load(const std::string& name, const char* scene)
    {
        const std::string prj = dir.Write(name + ".prj", "");
        if (scene)
            dir.Write(name + ".scn", scene);
        platform.dialogAnswers.push_back(prj);
        app->main.btnBrowseProjectFile.Click.Fire();
    }
    void Load(const std::string& name, const std::string& scene) { Load(name, scene.c_str()); }
    void Load(const std::string& scene) { Load("Scene", scene.c_str()); }
    std::vector<std::string> Messages() const { return platform.Texts(); }

    ScratchDir dir;
    FakePlatform platform;
    std::unique_ptr<App> app;
};

} // namespace tos::test
