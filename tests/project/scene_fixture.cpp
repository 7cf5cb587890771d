#include "scene_fixture.h"

#include "project/project_load.h"
#include "shell/startup.h"

namespace tos::test {

std::string SceneText(const std::vector<SceneModel>& models, const std::string& count,
                      const std::string& width, const std::string& scale)
{
    std::string t = "[Environment]\r\n";
    if (!width.empty())
        t += "TerrainWidth=" + width + "\r\n";
    if (!scale.empty())
        t += "TerrainWidthScale=" + scale + "\r\n";
    t += "\r\n[StaticModels]\r\n";
    if (!count.empty())
        t += "NumberOfStaticModels=" + (count == "auto" ? std::to_string(models.size()) : count) +
             "\r\n";
    long long n = 0;
    for (const SceneModel& m : models) {
        n = m.number ? m.number : n + 1;
        t += "\r\n[Model" + std::to_string(n) + "]\r\n";
        if (!m.value.empty())
            t += "SLT=" + m.value + "\r\n";
        if (!m.position.empty())
            t += "Position=" + m.position + "\r\n";
        t += "LookVector=0,0,-1\r\nUpVector=0,1,0\r\n";
    }
    return t;
}

LoadFixture::LoadFixture()
{
    platform.programFolder = dir.Path().string();
    Restart("");
}

void LoadFixture::Restart(const std::string& catalogue)
{
    if (!catalogue.empty())
        dir.Write("TolvarineObjectScripter.ini", catalogue);
    app = std::make_unique<App>(platform);
    Main(*app);
}

void LoadFixture::Load(const std::string& name, const char* scene)
{
    const std::string prj = dir.Write(name + ".prj", "");
    if (scene)
        dir.Write(name + ".scn", scene);
    platform.dialogAnswers.push_back(prj);
    app->main.btnBrowseProjectFile.Click.Fire();
}

} // namespace tos::test
