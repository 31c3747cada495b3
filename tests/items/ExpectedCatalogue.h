// The items as hosts know them, written out by hand for the tests of the catalogue.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace expected {

/// One item of a project whose results all exist.
struct Item {
    int itemId;
    int category;
    int checkState;
    int optionValue;
    std::map<int, std::string> options;
    std::string title;
    std::string description;
};

/// In the order of their ids. Only a shell project makes a difference.
std::vector<Item> CatalogueOf(int solverType);

/// What is missing, by item id, in a project without any file or fact. Items that are available
/// all the same have no entry.
std::map<int, std::string> MissingResultsOf(int solverType);

}  // namespace expected
