// BasePlugin: the quit flow, from the close button to "EPLUGIN_ID_BASE_CMD_MAINEXIT".

#include "basePlugin.h"
#include "basePlugin_p.h"

#include "cqgtaskmutexmap.h"
#include "mainExitAskWin.h"
#include "mainExitInputPassword.h"
#include "promotwin.h"
#include "settingpluginmodeldatainterface.h"
#include "verifypluginmodeldatainterface.h"

namespace {

enum eQuitMode { EQUITMODE_QUIT = 0, EQUITMODE_MINIMIZE = 1, EQUITMODE_ASK = 2 };
int const kVerifyKindExit = 1;
int const kVerifyPolicyPassword = 2;

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
        showQuitAskWin();
        break;
    default:
        break;
    }
}

void BasePlugin::showQuitAskWin()
{
    QWidget* main = d_ptr->m_pMainWindow;
    auto* ask = new MainExitAskWin(main);
    connect(ask, &MainExitAskWin::sig_ok_btn_clicked, this, &BasePlugin::slot_is_quit);
    if (main) {
        QRect const frame = main->geometry();
        ask->move(frame.x() + frame.width() / 2 - ask->width() / 2, frame.y() + frame.height() / 2 - ask->height() / 2);
    }
    d_ptr->m_pAskWin = ask;
    ask->show();
}

void BasePlugin::slot_is_quit(MainExitAskWin::eSelectedItem item, bool remember)
{
    if (!d_ptr)
        return;
    auto* ask = qobject_cast<MainExitAskWin*>(sender());
    if (!ask)
        ask = d_ptr->m_pAskWin;
    if (ask)
        ask->close();
    if (item == MainExitAskWin::ESELECTEDITEM_QUIT)
        slot_exit_second_confirm();
    else
        hideMainWindow();
    if (!remember)
        return;
    _SETTING_COMMON_ common;
    common.closeAction = item == MainExitAskWin::ESELECTEDITEM_QUIT ? EQUITMODE_QUIT : EQUITMODE_MINIMIZE;
    if (SettingPluginModelDataInterface* settings = SettingPluginModelDataInterface::singleInstance())
        settings->setSettingData(QVariant::fromValue(common));
}

void BasePlugin::slot_exit_second_confirm()
{
    if (!d_ptr || !showQuitTaskMutexWin())
        return;
    VerifyPluginModelDataInterface* verify = VerifyPluginModelDataInterface::singleInstance();
    if (verify && verify->getVerifyPolicy(kVerifyKindExit) == kVerifyPolicyPassword)
        showInputQuitPasswordWin();
    else
        showQuitConfirmWin();
}

// A running task that forbids quitting stops the quit with its own prompt.
bool BasePlugin::showQuitTaskMutexWin()
{
    QVector<CQTaskInfo> tasks;
    if (!CQGTaskMutexMap::singleInstance()->isExistTaskInfo(tasks))
        return true;
    for (CQTaskInfo const& task : qAsConst(tasks)) {
        if (task.allowQuit)
            continue;
        auto* prompt = new PromotWin(d_ptr->m_pMainWindow);
        PromotWin::sInfo info;
        info.kind = PromotWin::KIND_WARNING;
        info.title = task.title;
        info.text = task.text;
        info.rightBtnText = QString::fromUtf8("确定");
        prompt->setParas(info);
        std::function<bool()> const action = task.action;
        connect(prompt, &PromotWin::sig_right_btn_clicked, this, [action]() {
            if (action)
                action();
        });
        prompt->show();
        return false;
    }
    return true;
}

void BasePlugin::showQuitConfirmWin()
{
    auto* prompt = new PromotWin(d_ptr->m_pMainWindow);
    PromotWin::sInfo info;
    info.kind = PromotWin::KIND_WARNING;
    info.text = QString::fromUtf8("将失去对电脑的安全防护，是否确认退出？");
    info.leftBtnText = QString::fromUtf8("取消");
    info.rightBtnText = QString::fromUtf8("确定");
    prompt->setParas(info);
    connect(prompt, &PromotWin::sig_right_btn_clicked, this, &BasePlugin::slot_exit);
    prompt->show();
}

void BasePlugin::showInputQuitPasswordWin()
{
    if (!d_ptr->m_pInputPassword) {
        auto* input = new MainExitInputPassword(d_ptr->m_pMainWindow);
        connect(input, &MainExitInputPassword::sig_password_is_ok, this, &BasePlugin::slot_exit_input_password_result);
        connect(input, &CQInputPassword::sig_close, input, &QObject::deleteLater);
        d_ptr->m_pInputPassword = input;   // cleared by the window's destruction
    }
    d_ptr->m_pInputPassword->slot_show();
}

void BasePlugin::slot_exit_input_password_result(bool ok)
{
    if (ok)
        slot_exit();
}
