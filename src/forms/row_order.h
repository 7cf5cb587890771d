#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tos {

// Puts the rows behind the first sorted ones (which are in order already) in among them,
// in the order of a sorted list box: by the rows' upper-cased bytes compared as unsigned,
// rows with equal keys in the order they came in.
void MergeRowsInOrder(std::vector<std::string>& rows, std::size_t sorted);

} // namespace tos
