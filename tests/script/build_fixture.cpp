#include "build_fixture.h"

#include <cmath>
#include <sstream>

namespace tos::test {

BuildFixture::BuildFixture()
{
    app.state.Pi = 4 * std::atan(1.0);
    app.state.SaveToFile = true;
    app.state.ScriptBasePath = dir.File("Valley");
    app.state.ScnFile = dir.File("Valley.scn");
    app.main.btnProcess.SetEnabled(true);
}

void BuildFixture::Scene(const std::string& bytes)
{
    dir.Write("Valley.scn", bytes);
}

void BuildFixture::SceneFromCase(const std::string& caseName)
{
    Scene(ReadBytes(CaseFile(caseName, "Valley.scn")));
}

void BuildFixture::Rows(ListBox MainForm::*list, const std::vector<std::string>& rows)
{
    for (const std::string& row : rows)
        (app.main.*list).AddItem(row);
}

std::string BuildFixture::ScriptBytes() const
{
    std::string bytes;
    for (const std::string& row : app.main.List2.Rows())
        bytes += row + "\r\n";
    return bytes;
}

std::string CaseFile(const std::string& caseName, const std::string& fileName)
{
    return std::string(TOS_TEST_DATA_DIR) + "/script/" + caseName + "/" + fileName;
}

std::vector<std::string> CaseRows(const std::string& caseName)
{
    std::istringstream in(ReadBytes(CaseFile(caseName, "rows.txt")));
    std::vector<std::string> rows;
    for (std::string line; std::getline(in, line);)
        rows.push_back(line);
    return rows;
}

} // namespace tos::test
