#include "db/ReferenceLists.h"

namespace ventlock {

bool LoadReferenceLists(clsTavDB& tavDB, IList& protocols, IList& majorCategories, IList& minorCategories) {
    return tavDB.LoadProtocols(protocols) && tavDB.LoadCategories(majorCategories, kMajorCategory) &&
           tavDB.LoadCategories(minorCategories, kMinorCategory);
}

}  // namespace ventlock
