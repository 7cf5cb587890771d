#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "support/checked.h"

namespace tos {

// A stock catalogue table: rows in the order added, keys unique ignoring case.
class CatalogueTable {
public:
    explicit CatalogueTable(std::string name) : name_(std::move(name)) {}
    const std::string& Name() const { return name_; }
    // Failure 457 when a row of the same key (ignoring case) is there already.
    void Add(const std::string& row);
    bool Contains(const std::string& value) const;
    const std::vector<std::string>& Rows() const { return rows_; }

private:
    std::string name_;
    std::vector<std::string> rows_;
    std::unordered_set<std::string> keys_; // upper-cased
};

// The shared state of one run of the program.
struct RunState {
    std::string AppName;
    std::string DefaultDir;
    std::string ObjectDir;
    std::string CurrentDir;
    std::string ScriptBasePath;
    std::string ScriptFileName;
    std::string ScnFile;
    std::string IniFile;
    Int32 NumberOfStaticModels;
    Int32 SLTcount;
    double Pi = 0;
    double LookX = 0, LookY = 0, LookZ = 0;
    double UpX = 0, UpY = 0, UpZ = 0;
    double AngleX = 0, AngleY = 0, AngleZ = 0;
    bool RotateX = false, RotateY = false, RotateZ = false;
    bool SaveToFile = false;

    CatalogueTable InternalBillboard{"InternalBillboard"};
    CatalogueTable InternalBale{"InternalBale"};
    CatalogueTable InternalTripleBale{"InternalTripleBale"};
    CatalogueTable Internal55GalDrum_TrashCan{"Internal55GalDrum_TrashCan"};
    CatalogueTable InternalMiscStockObject{"InternalMiscStockObject"};
};

} // namespace tos
