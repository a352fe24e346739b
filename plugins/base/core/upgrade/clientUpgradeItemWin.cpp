#include "clientUpgradeItemWin.h"

#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {
constexpr char kLogModule[] = "plugins/base/core/upgrade/clientUpgradeItemWin";
// Item type of the client itself in the upgrade plugin's list.
constexpr int kClientItemType = 2;
} // namespace

ClientUpgradeItemWin::ClientUpgradeItemWin(QWidget* parent)
    : UpgradeItemWidget(parent)
{
    setObjectName(QStringLiteral("ClientUpgradeItemWin"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(40);
    setStyleSheet(QStringLiteral(
        "#ClientUpgradeItemWin{background:transparent;}"
        "#m_pLabelName{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;}"
        "#m_pLabelVersion{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#7A7B85;}"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    m_pLabelName = new QLabel(name(), this);
    m_pLabelName->setObjectName(QStringLiteral("m_pLabelName"));
    m_pLabelVersion = new QLabel(QStringLiteral("--"), this);
    // The version comes from the backend as it is.
    m_pLabelVersion->setTextFormat(Qt::PlainText);
    m_pLabelVersion->setObjectName(QStringLiteral("m_pLabelVersion"));
    layout->addWidget(m_pLabelName);
    layout->addWidget(m_pLabelVersion);
    layout->addStretch();

    connect(BasePluginModelDataInterface::singleInstance(), &BasePluginModelDataInterface::sig_setClientVersionInfo,
            this, &ClientUpgradeItemWin::slot_setClientVersionInfo);
}

ClientUpgradeItemWin::~ClientUpgradeItemWin()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[ClientUpgradeItemWin] delete ClientUpgradeItemWin obj");
}

QString ClientUpgradeItemWin::name() const
{
    return QStringLiteral("客户端");
}

int ClientUpgradeItemWin::type() const
{
    return kClientItemType;
}

void ClientUpgradeItemWin::slot_setClientVersionInfo(QString version)
{
    m_pLabelVersion->setText(version.trimmed().isEmpty() ? QStringLiteral("--") : version.trimmed());
}
