#include "db/ConnectDatabase.h"

#include "core/clsLog.h"
#include "core/clsSettings.h"
#include "core/modLocalization.h"
#include "db/SchemaVersion.h"
#include "db/clsConnection.h"

namespace ventlock {

bool ConnectDatabase(const AppObjects& oAppObjects, IEvents& events, std::unique_ptr<clsTavDB>& tavDB,
                     std::int16_t& schemaVersion) {
    const std::string dataSource = oAppObjects.Get<clsSettings>(kSettingsKey).DSN;
    if (!oAppObjects.Get<clsConnection>(kConnectionKey).Init(oAppObjects, 2, dataSource, "Ventlock"))
        return false;
    if (!tavDB) tavDB = std::make_unique<clsTavDB>(events);
    if (!tavDB->Init(oAppObjects, 2)) return false;

    // Read a second time: the table may have become unreadable since.
    schemaVersion = tavDB->FindVersion();
    const auto refuse = [&](const char* key) {
        oAppObjects.Get<clsLog>(kLogKey).Log(GetString(key));
        return false;
    };
    if (schemaVersion == kUnreadableSchema) return refuse("IDS_MSG_DB_ERR_VER_NOREAD");
    if (schemaVersion == kUnsupportedSchema) return refuse("IDS_MSG_DB_ERR_VER_NOSUPPORT");
    tavDB->IsEmpty();  // the result decides nothing; the two reads show early that the tables can be read
    return true;
}

}  // namespace ventlock
