#include "collection/Registry.h"

#include <tuple>

#include "collection/BrennCollection.h"
#include "collection/Products.h"
#include "util/Text.h"

namespace crashvane {

namespace {

template <typename... Classes>
struct ProductTable {
    using Instances = std::tuple<Classes...>;

    // The instance of the first class that has this key; null when none has.
    static Collection* Find(const std::string& strKey) {
        Collection* pFound = nullptr;
        static_cast<void>(((pFound = FindOne<Classes>(strKey), pFound != nullptr) || ...));
        return pFound;
    }

    template <typename Class>
    static Collection* InstanceOf() {
        static Class Instance;
        return &Instance;
    }

  private:
    template <typename Class>
    static Collection* FindOne(const std::string& strKey) {
        return strKey == Class::ProjectKey ? InstanceOf<Class>() : nullptr;
    }
};

// Keys are tested in this order. DefaultCollection takes what is left over, its own key included.
using Products = ProductTable<BrennCollection, FyrnCollection, GaldorCollection, CymraCollection, HeskCollection,
                              OrvelCollection, XXCollection, TalisCollection, ToolCollection, DovekCollection,
                              EssarnCollection, EditorCollection, IvorelGameClientCollection, MendwellCollection>;

// One collector of each class is made when the program starts and stays unused: every class shows there that it can be
// built with nothing around it.
Products::Instances AnnouncedCollections;
DefaultCollection AnnouncedDefault;

}  // namespace

Collection* CreateCollection(const std::string& strProject) {
    Collection* pFound = Products::Find(ToUpper(strProject));

    return pFound != nullptr ? pFound : Products::InstanceOf<DefaultCollection>();
}

}  // namespace crashvane
