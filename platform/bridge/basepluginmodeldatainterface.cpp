#include "basepluginmodeldatainterface.h"

#include "bridgeinstance_p.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

#include <QRegularExpression>

namespace {

char const* const kModule = "platform/bridge/basepluginmodeldatainterface";

BridgeInstance<BasePluginModelDataInterface> g_instance;

} // namespace

BasePluginModelDataInterface* BasePluginModelDataInterface::singleInstance()
{
    return g_instance.get([] { return new BasePluginModelDataInterface; });
}

void BasePluginModelDataInterface::UninitInstance(bool now)
{
    g_instance.release(now);
}

BasePluginModelDataInterface::BasePluginModelDataInterface(QObject* parent)
    : QObject(parent)
{
    BridgeMetaTypes::registerAll();
    connect(QuorixBackendRegistry::singleInstance(), &QuorixBackendRegistry::sig_backendChanged, this,
            &BasePluginModelDataInterface::bindBackend);
    bindBackend();
}

BasePluginModelDataInterface::~BasePluginModelDataInterface()
{
    g_instance.forget(this);
    BFLOG(BFLOG_DEBUG, kModule, "[BasePluginModelDataInterface] delete BasePluginModelDataInterface obj");
}

void BasePluginModelDataInterface::bindBackend()
{
    dropBackendLinks(m_backendLinks);
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    QuorixBackend* const b = backend.get();
    auto const queued = Qt::QueuedConnection;
    using Self = BasePluginModelDataInterface;
    m_backendLinks = {
        connect(b, &QuorixBackend::sig_appQuit, this, &Self::sig_appQuit, queued),
        connect(b, &QuorixBackend::sig_Jump, this, &Self::sig_Jump, queued),
        connect(b, &QuorixBackend::sig_hide, this, &Self::sig_hide, queued),
        connect(b, &QuorixBackend::sig_centerShow, this, &Self::sig_centerShow, queued),
        connect(b, &QuorixBackend::sig_noticeWin, this, &Self::sig_noticeWin, queued),
        connect(b, &QuorixBackend::sig_UniNotifyMsg, this, &Self::sig_UniNotifyMsg, queued),
        connect(b, &QuorixBackend::sig_shutdown_reboot_notice, this, &Self::sig_shutdown_reboot_notice, queued),
        connect(b, &QuorixBackend::sig_device_mgr_msg, this, &Self::sig_device_mgr_msg, queued),
        connect(b, &QuorixBackend::sig_guardDays, this, &Self::sig_CumulativeGuardDays, queued),
    };
}

void BasePluginModelDataInterface::emitBaseData(bool withDays)
{
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    emit sig_setClientVersionInfo(backend->clientVersion());
    emit sig_setVirusDataVersionInfo(backend->virusDataVersion());
    if (!withDays)
        return;
    __sBaseModuleBaseInfo info;
    info.value = backend->baseInfo();
    emit sig_base_info(info);
    emit sig_CumulativeGuardDays(backend->guardDays());
}

int BasePluginModelDataInterface::requestUpdateData()
{
    postToBridge(this, [this]() { emitBaseData(true); });
    return 0;
}

bool BasePluginModelDataInterface::isBackendReady()
{
    return QuorixBackendRegistry::backend()->isReady();
}

int BasePluginModelDataInterface::requestWeakPasswdCheck()
{
    int const rc = QuorixBackendRegistry::backend()->requestWeakPasswdCheck();
    if (rc == 0)
        postToBridge(this, [this]() { emit sig_weakPasswdCheckRecieved(); });
    return rc;
}

int BasePluginModelDataInterface::requestShutdown(int method)
{
    if (method != EDEVMGR_SHUTDOWN && method != EDEVMGR_SHUTDOWN_FORCE) {
        BFLOG(BFLOG_ERROR, kModule, "[BasePluginModelDataInterface] shutdown method [%d] not supported", method);
        return -1;
    }
    return QuorixBackendRegistry::backend()->shutdown(method);
}

int BasePluginModelDataInterface::requestReboot()
{
    return QuorixBackendRegistry::backend()->reboot();
}

int BasePluginModelDataInterface::requestVersionInfo()
{
    postToBridge(this, [this]() { emitBaseData(false); });
    return 0;
}

int BasePluginModelDataInterface::notifyTrayMenuShow()
{
    QuorixBackendRegistry::backend()->trayMenuShown();
    return 0;
}

void BasePluginModelDataInterface::myVersion2QuorixVersion(QString const& version, QString& first, QString& second,
                                                           QString& third)
{
    first.clear();
    second.clear();
    third.clear();
    // Nine digits per part keep every part within an int for whoever converts it.
    static QRegularExpression const shape(QStringLiteral("^[vV]?([0-9]{1,9}(?:\\.[0-9]{1,9}){0,3})$"));
    QRegularExpressionMatch const match = shape.match(version.trimmed());
    if (!match.hasMatch()) {
        BFLOG(BFLOG_WARN, kModule, "[BasePluginModelDataInterface] unreadable version [%s]",
              qUtf8Printable(version.left(64)));
        return;
    }
    QStringList const parts = match.captured(1).split(QLatin1Char('.'));
    first = parts.size() >= 2 ? parts.at(0) + QLatin1Char('.') + parts.at(1) : parts.at(0);
    if (parts.size() >= 3)
        second = parts.at(2);
    if (parts.size() >= 4)
        third = parts.at(3);
}

QString BasePluginModelDataInterface::quorixVersionDisplayText(QString const& first, QString const& second,
                                                               QString const& third)
{
    if (first.isEmpty())
        return QString();
    QString text = QStringLiteral("V") + first;
    if (!second.isEmpty())
        text += QLatin1Char('.') + second;
    // The build number stays in: support staff ask for it, and the navigation's
    // version label is too narrow for anything wordier.
    if (!third.isEmpty())
        text += QLatin1Char('.') + third;
    return text;
}
