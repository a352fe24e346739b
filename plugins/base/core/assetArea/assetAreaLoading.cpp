#include "assetAreaLoading.h"

#include "basegui_common.h"
#include "cqloadingwin.h"

namespace {

int const kWidth = 744;
int const kHeight = 74;
int const kIconSize = 16;
// Gap in pixels between the spinner and its text.
int const kTextSpacing = 8;

} // namespace

AssetAreaLoading::AssetAreaLoading(QWidget* parent)
    : QDialog(parent)
{
    InitUI();
}

AssetAreaLoading::~AssetAreaLoading() = default;

void AssetAreaLoading::InitUI()
{
    // Replaces the dialog's window type too: the page lives inside a stack
    // and must never come up as a window of its own.
    setWindowFlags(Qt::FramelessWindowHint);
    setObjectName(QStringLiteral("AssetAreaLoading"));
    setFixedSize(kWidth, kHeight);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/assetAreaLoading.qss")));

    m_pLoadingWin = new CQLoadingWin(this);
    m_pLoadingWin->setObjectName(QStringLiteral("m_pLoadingWin"));
    m_pLoadingWin->setGeometry(0, 0, kWidth, kHeight);
    m_pLoadingWin->setLoadingIconSize(kIconSize);
    m_pLoadingWin->setText(QString::fromUtf8("加载中"), kTextSpacing);
    m_pLoadingWin->setFocusPolicy(Qt::NoFocus);
}

CQLoadingWin* AssetAreaLoading::loadingWin() const
{
    return m_pLoadingWin;
}

void AssetAreaLoading::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_pLoadingWin->isLoading())
        m_pLoadingWin->startLoading();
}

void AssetAreaLoading::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (m_pLoadingWin->isLoading())
        m_pLoadingWin->stopLoading();
}
