#include "versionStatusCardWin.h"

#include "clogdebug.h"
#include "cqlabelstate.h"
#include "upgradepluginmodeldatainterface.h"
#include "versionWin.h"

namespace {
constexpr char kLogModule[] = "plugins/base/core/upgrade/versionStatusCardWin";
constexpr int kKindVirusLibrary = 1;
constexpr int kKindVulnerabilityLibrary = 4;
// Asks the upgrade service for the current library versions.
constexpr int kRequestLibraryVersions = 7;
constexpr int kVirusBlockKey = 8;
constexpr int kVulnerabilityBlockKey = 4;
} // namespace

class VersionStatusCardWinPrivate
{
public:
    explicit VersionStatusCardWinPrivate(VersionStatusCardWin* q)
        : q_ptr(q)
    {
        InitUI();
    }

    void InitUI()
    {
        q_ptr->setTitle(QStringLiteral("版本状态"));

        auto* state = new CQLabelState(QStringLiteral("监控中"), CQLabelState::UITYPE_NORMAL, q_ptr);
        state->setFixedSize(38, 18);
        q_ptr->setStateWidget(state);

        m_pVirusWin = createBlock(QStringLiteral("病毒库日期"), kVirusBlockKey);
        m_pVulnerabilityWin = createBlock(QStringLiteral("漏洞库日期"), kVulnerabilityBlockKey);
        q_ptr->end();
    }

    VersionWin* createBlock(QString const& name, int key)
    {
        auto* block = new VersionWin(q_ptr);
        block->setName(name);
        block->setVersion(QString());
        q_ptr->registerItem(block, key);
        return block;
    }

    VersionStatusCardWin* q_ptr = nullptr;
    VersionWin* m_pVirusWin = nullptr;
    VersionWin* m_pVulnerabilityWin = nullptr;
};

VersionStatusCardWin::VersionStatusCardWin(QWidget* parent)
    : BaseCardWin(parent)
    , d_ptr(new VersionStatusCardWinPrivate(this))
{
    qRegisterMetaType<QList<_VERINFO_>>("QLIST_VERINFO");
    connect(UpgradePluginModelDataInterface::singleInstance(), &UpgradePluginModelDataInterface::sig_checkUpdateInfo,
            this, &VersionStatusCardWin::slot_checkUpgradeInfo);
    updateVersion();
}

VersionStatusCardWin::~VersionStatusCardWin()
{
    disconnect(UpgradePluginModelDataInterface::singleInstance(), &UpgradePluginModelDataInterface::sig_checkUpdateInfo,
               this, &VersionStatusCardWin::slot_checkUpgradeInfo);
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[VersionStatusCardWin] delete VersionStatusCardWin obj");
}

void VersionStatusCardWin::updateVersion()
{
    UpgradePluginModelDataInterface* bridge = UpgradePluginModelDataInterface::singleInstance();
    QString const userId = bridge->getUserID();
    bridge->checkUpdate(userId, kRequestLibraryVersions);
}

QString VersionStatusCardWin::virusVersion() const
{
    return d_ptr->m_pVirusWin->version();
}

QString VersionStatusCardWin::vulnerabilityVersion() const
{
    return d_ptr->m_pVulnerabilityWin->version();
}

void VersionStatusCardWin::slot_checkUpgradeInfo(QString, QList<_VERINFO_> const& versions)
{
    // In list order, so of several records of one kind the last one shows.
    for (_VERINFO_ const& info : versions) {
        if (info.kind == kKindVirusLibrary)
            d_ptr->m_pVirusWin->setVersion(info.version);
        else if (info.kind == kKindVulnerabilityLibrary)
            d_ptr->m_pVulnerabilityWin->setVersion(info.version);
    }
}
