#include "versionWin.h"

#include "cqlabel.h"

namespace {
constexpr int kWidth = 116;
constexpr int kHeight = 36;
constexpr char kEmptyVersion[] = "--";
} // namespace

VersionWin::VersionWin(QWidget* parent)
    : CQFrame(parent)
{
    setObjectName(QStringLiteral("VersionWin"));
    setFixedSize(kWidth, kHeight);
    setStyleSheet(QStringLiteral("VersionWin{background:transparent;border:none;}"));

    m_pWinLine = new QWidget(this);
    m_pWinLine->setObjectName(QStringLiteral("pWinLine"));
    m_pWinLine->setAttribute(Qt::WA_StyledBackground);
    m_pWinLine->setGeometry(0, 4, 2, 10);
    m_pWinLine->setStyleSheet(QStringLiteral("#pWinLine{background:#5F93FA;border:none;}"));

    m_pLabelName = new CQLabel(this);
    m_pLabelName->setObjectName(QStringLiteral("m_pLabelName"));
    m_pLabelName->setGeometry(6, 0, kWidth - 6, 16);
    m_pLabelName->setStyleSheet(
        QStringLiteral("#m_pLabelName{font-family:\"Noto Sans CJK SC\";font-size:10px;color:#7A7B85;}"));

    m_pLabelVersion = new CQLabel(this);
    m_pLabelVersion->setObjectName(QStringLiteral("m_pLabelVersion"));
    m_pLabelVersion->setGeometry(0, 16, kWidth, 20);
    m_pLabelVersion->setStyleSheet(
        QStringLiteral("#m_pLabelVersion{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#515260;}"));
    setVersion(QString());
}

VersionWin::~VersionWin() = default;

void VersionWin::setName(QString const& name)
{
    m_name = name;
    CQLabel::LabelWidthAdjustText(m_pLabelName, name);
}

void VersionWin::setVersion(QString version)
{
    if (version.isEmpty())
        version = QString::fromLatin1(kEmptyVersion);
    m_version = version;
    CQLabel::LabelWidthAdjustText(m_pLabelVersion, version);
}

QString VersionWin::name() const
{
    return m_name;
}

QString VersionWin::version() const
{
    return m_version;
}
