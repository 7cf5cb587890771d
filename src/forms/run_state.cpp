#include "forms/run_state.h"

#include "support/conversions.h"
#include "support/failure.h"

namespace tos {

void CatalogueTable::Add(const std::string& row)
{
    if (!keys_.insert(UpperCase(row)).second)
        Fail(err::DuplicateKey);
    rows_.push_back(row);
}

bool CatalogueTable::Contains(const std::string& value) const
{
    return keys_.count(UpperCase(value)) != 0;
}

} // namespace tos
