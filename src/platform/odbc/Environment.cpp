#include "platform/odbc/Environment.h"

#include "OdbcApi.h"
#include "base/RunTimeError.h"
#include "platform/odbc/Wide.h"

namespace ventlock::odbc {

EnvironmentHandle OpenEnvironment() {
    EnvironmentHandle environment = EnvironmentHandle::Allocate(SQL_NULL_HANDLE);
    if (!environment) throw RunTimeError(ErrorNumber::CannotCreateObject);
    const SQLRETURN result = SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                                           AttributeValue(SQL_OV_ODBC3), SQL_IS_UINTEGER);
    if (!SQL_SUCCEEDED(result)) throw RunTimeError(ErrorNumber::CannotCreateObject);
    return environment;
}

}  // namespace ventlock::odbc
