#include "mainExitInputPassword.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "verifypluginmodeldatainterface.h"

namespace {

char const* const kModule = "plugins/base/interface/mainExitInputPassword";
int const kVerifyKindExit = 1;

} // namespace

MainExitInputPassword::MainExitInputPassword(QWidget* parent)
    : CQInputPassword(parent)
{
    setObjectName(QStringLiteral("MainExitInputPassword"));
    CQInputPassword::sInfo info;
    info.prompt = QString::fromUtf8("退出将失去对电脑的保护，是否确认退出？");
    info.label = QString::fromUtf8("退出密码");
    info.hint = QString::fromUtf8("联系管理员获取退出密码");
    setInfo(info);
    connect(this, &CQInputPassword::sig_submit, this, &MainExitInputPassword::slot_check_password);
}

MainExitInputPassword::~MainExitInputPassword()
{
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[MainExitInputPassword] delete MainExitInputPassword obj");
}

void MainExitInputPassword::slot_show()
{
    clear();
    basegui::Common::setWidgetMidPos(this, parentWidget(), QPoint(0, 0));
    show();
    raise();
    activateWindow();
}

void MainExitInputPassword::slot_check_password(QString password)
{
    VerifyPluginModelDataInterface* verify = VerifyPluginModelDataInterface::singleInstance();
    bool const ok = verify && verify->verifyPassword(kVerifyKindExit, password) == 0;
    slot_updateUIType(ok ? CQInputPassword::UITYPE_NORMAL : CQInputPassword::UITYPE_ERROR);
    if (ok)
        close();
    emit sig_password_is_ok(ok);
}
