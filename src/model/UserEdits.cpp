#include "model/UserEdits.h"

#include <filesystem>

#include "model/Store.h"
#include "model/UserNames.h"

namespace velmora::model {

std::size_t addUser(SharedData& shared, const std::string& name)
{
    shared.userNames.push_back(capitaliseFirst(name));
    return shared.userNames.size() - 1;
}

bool switchUser(Store& store, std::size_t k, FileError* error)
{
    if (k >= store.shared.userNames.size())
        return false;
    store.shared.currentUser = static_cast<std::uint8_t>(k);
    store.journal.days.clear();
    return store.loadCurrentUser(error);
}

bool deleteUser(Store& store, std::size_t k, FileError* error)
{
    auto& names = store.shared.userNames;
    if (k >= names.size())
        return false;
    if (const auto path = store.userFilePath(k)) {
        std::error_code ignored;
        std::filesystem::remove(*path, ignored);
    }
    names.erase(names.begin() + static_cast<std::ptrdiff_t>(k));
    store.shared.currentUser = 0;
    store.journal.days.clear();
    store.loadCurrentUser(error);
    return true;
}

} // namespace velmora::model
