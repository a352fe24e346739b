// BasePlugin: the quit flow, from the close button to "EPLUGIN_ID_BASE_CMD_MAINEXIT".

#include "basePlugin.h"
#include "basePlugin_p.h"

#include "clogdebug.h"

namespace {

char const* const kModule = "plugins/base/interface/basePlugin";

enum eQuitMode { EQUITMODE_QUIT = 0, EQUITMODE_MINIMIZE = 1, EQUITMODE_ASK = 2 };

} // namespace

void BasePlugin::slot_close()
{
    if (d_ptr)
        d_ptr->getQuitMode();
}

void BasePlugin::slot_updateQuitMode(__sSettingData data)
{
    if (!d_ptr || data.key != 0)
        return;
    switch (data.value.value<_SETTING_COMMON_>().closeAction) {
    case EQUITMODE_QUIT:
        slot_exit_second_confirm();
        break;
    case EQUITMODE_MINIMIZE:
        hideMainWindow();
        break;
    case EQUITMODE_ASK:
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] quit mode 2: ask window pending");
        break;
    default:
        break;
    }
}

void BasePlugin::slot_exit_second_confirm()
{
    BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] second confirm pending");
}
