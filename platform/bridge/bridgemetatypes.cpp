#include "bridgemetatypes.h"

#include "bridgerecords.h"

#include <QMetaType>

namespace {

// The C++ name (from Q_DECLARE_METATYPE) and the short alias of one record.
template <typename T>
void registerRecord(char const* alias)
{
    qRegisterMetaType<T>();
    qRegisterMetaType<T>(alias);
}

} // namespace

void BridgeMetaTypes::registerAll()
{
    registerRecord<_sNoticeWinInfo_>("sNoticeWinInfo");
    registerRecord<UNINSTALL_RESULT>("UNINSTALL_RESULT");
    registerRecord<__sUniNoticeMsgInfo>("sUniNoticeMsgInfo");
    registerRecord<__sSettingData>("sSettingData");
    registerRecord<__sDeviceMgrPopup>("sDeviceMgrPopup");
    registerRecord<__sBaseModuleBaseInfo>("sBaseModuleBaseInfo");
    registerRecord<eDevMgr>("eDevMgr");
    registerRecord<_SETTING_COMMON_>("SETTING_COMMON");
    registerRecord<_VERINFO_>("VERINFO");
    registerRecord<QList<_VERINFO_>>("QLIST_VERINFO");
}
