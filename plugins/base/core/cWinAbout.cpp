#include "cWinAbout.h"
#include "cWinAbout_p.h"

#include "basegui_common.h"
#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"
#include "cqlabel.h"
#include "cqlogotitle.h"
#include "cqtitlebuttons.h"
#include "dravoguiconfig.h"
#include "myStackedWins1.h"

#include <QMouseEvent>

#include <string>

namespace {
constexpr char kLogModule[] = "plugins/base/core/cWinAbout";
constexpr int kWidth = 480;
constexpr int kHeight = 349;
constexpr int kShortVersionKey = 10;
} // namespace

// ---------------------------------------------------------------- private part

CWinAboutPrivate::CWinAboutPrivate(CWinAbout* q)
    : q_ptr(q)
    , m_virusPrefix(QStringLiteral("病毒库版本："))
    , m_clientPrefix(QStringLiteral("客户端版本："))
    , m_copyright(QStringLiteral("Copyright © 2026 Quorix. All rights reserved."))
{
    InitUIWin();
    InitUILogo();
    InitUICloseBtn();
    InitUIStackedWins();
    InitUIVirusLine();
    InitUIClientLine();
    InitUICopyright();
}

CWinAboutPrivate::~CWinAboutPrivate() = default;

QString CWinAboutPrivate::GetSimpleClientVersion(QString const& version)
{
    int const dot = version.indexOf(QLatin1Char('.'), 3);
    return dot >= 0 ? version.left(dot) : version;
}

void CWinAboutPrivate::update()
{
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    // Both answers come back through the version signals connected before.
    bridge->requestVersionInfo();
}

void CWinAboutPrivate::InitUIWin()
{
    q_ptr->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    q_ptr->setObjectName(QStringLiteral("CWinAbout"));
    q_ptr->setWindowTitle(QString::fromUtf8("关于"));
    q_ptr->setWindowModality(Qt::WindowModal);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/cwinabout.qss")));
    q_ptr->setFixedSize(kWidth, kHeight);
    basegui::Common::setWidgetMidPos(q_ptr, q_ptr->parentWidget(), QPoint(0, 0));
    q_ptr->setAttribute(Qt::WA_DeleteOnClose);
}

void CWinAboutPrivate::InitUILogo()
{
    std::string theme = "default";
    std::string productName;
    int const ret1 = DravoGuiConfig::theme(theme);
    if (ret1 != 0)
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[CWinAboutPrivate] get theme failed, ret1 is [%d]", ret1);
    int const ret2 = DravoGuiConfig::productName(productName);
    if (ret2 != 0)
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[CWinAboutPrivate] get product name failed, ret2 is [%d]", ret2);
    if (ret1 != 0 || ret2 != 0 || theme == "default")
        m_pLogo = new CQLogoTitle(64, 64, 0, 0, q_ptr);
    else
        m_pLogo = new CQLogoTitle(64, 64, 300, 0, QString::fromStdString(productName), q_ptr);
    m_pLogo->move(48, 36);
}

void CWinAboutPrivate::InitUICloseBtn()
{
    m_pBtnClose = new CQCloseBtn(1, q_ptr);
    m_pBtnClose->setGeometry(440, 18, 16, 16);
}

void CWinAboutPrivate::InitUIStackedWins()
{
    m_pStackedWins = new MyStackedWins1(q_ptr);
    m_pStackedWins->move(0, 116);
    m_pLabClientVersionSimple = new QLabel(q_ptr);
    m_pLabClientVersionSimple->setObjectName(QStringLiteral("m_pLabClientVersionSimple"));
    m_pLabClientVersionSimple->setFixedSize(61, 28);
    m_pLabClientVersionSimple->setAlignment(Qt::AlignCenter);
    m_pLabClientVersionSimple->setTextFormat(Qt::PlainText);
    m_pStackedWins->registerItem(m_pLabClientVersionSimple, kShortVersionKey);
}

QLabel* CWinAboutPrivate::createBullet(QString const& name, int x, int y)
{
    QLabel* bullet = new QLabel(q_ptr);
    bullet->setObjectName(name);
    bullet->setGeometry(x, y, 6, 6);
    return bullet;
}

QLabel* CWinAboutPrivate::createLine(QString const& name, int x, int y)
{
    QLabel* line = new QLabel(q_ptr);
    line->setObjectName(name);
    line->setGeometry(x, y, 250, 22);
    // Versions come from the backend: shown as they are, never as markup.
    line->setTextFormat(Qt::PlainText);
    return line;
}

void CWinAboutPrivate::InitUIVirusLine()
{
    m_pLabBlackPoint_1 = createBullet(QStringLiteral("m_pLabBlackPoint_1"), 48, 185);
    m_pLabVirusDataVersionInfo = createLine(QStringLiteral("m_pLabVirusDataVersionInfo"), 62, 176);
    m_pLabVirusDataVersionInfo->setText(m_virusPrefix);
}

void CWinAboutPrivate::InitUIClientLine()
{
    m_pLabBlackPoint_2 = createBullet(QStringLiteral("m_pLabBlackPoint_2"), 48, 223);
    m_pLabClientVersionInfo = createLine(QStringLiteral("m_pLabClientVersionInfo"), 62, 214);
    m_pLabClientVersionInfo->setText(m_clientPrefix);
}

void CWinAboutPrivate::InitUICopyright()
{
    m_pLabCopyright = new CQLabel(m_copyright, q_ptr);
    m_pLabCopyright->setObjectName(QStringLiteral("m_pLabCopyright"));
    m_pLabCopyright->setGeometry(0, 305, kWidth, 20);
    m_pLabCopyright->setAlignment(Qt::AlignCenter);
}

// ---------------------------------------------------------------- dialog

CWinAbout::CWinAbout(QWidget* parent)
    : QDialog(parent)
    , d_ptr(new CWinAboutPrivate(this))
{
    InitControl();
    d_ptr->update();
}

CWinAbout::~CWinAbout()
{
    // Badges belong to the plugins that registered them; the dialog is deleted
    // on every close, so hand them back alive. Its own version badge is
    // detached like the others and would outlive the dialog as a hidden
    // top-level label, one per opening.
    QList<int> const keys = d_ptr->m_pStackedWins->keys();
    for (int key : keys)
        d_ptr->m_pStackedWins->unRegisterItem(key);
    delete d_ptr->m_pLabClientVersionSimple;
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[CWinAbout] delete CWinAbout obj");
}

void CWinAbout::InitControl()
{
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    connect(bridge, &BasePluginModelDataInterface::sig_setClientVersionInfo, this,
            &CWinAbout::slot_setClientVersionInfo);
    connect(bridge, &BasePluginModelDataInterface::sig_setVirusDataVersionInfo, this,
            &CWinAbout::slot_setVirusDataVersionInfo);
    connect(d_ptr->m_pBtnClose, &QPushButton::clicked, this, &QDialog::close);
}

int CWinAbout::registerItem(QWidget* w, int key)
{
    return d_ptr->m_pStackedWins->registerItem(w, key);
}

int CWinAbout::unRegisterItem(int key)
{
    return d_ptr->m_pStackedWins->unRegisterItem(key);
}

void CWinAbout::slot_setClientVersionInfo(QString version)
{
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    QString first;
    QString second;
    QString third;
    bridge->myVersion2QuorixVersion(version, first, second, third);
    QString const display = bridge->quorixVersionDisplayText(first, second, third);
    d_ptr->m_pLabClientVersionInfo->setText(d_ptr->m_clientPrefix + display);
    d_ptr->m_pLabClientVersionSimple->setText(QStringLiteral("V") + first);
}

void CWinAbout::slot_setVirusDataVersionInfo(QString version)
{
    d_ptr->m_pLabVirusDataVersionInfo->setText(d_ptr->m_virusPrefix + version);
}

void CWinAbout::slot_close()
{
    close();
}

void CWinAbout::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QDialog::mousePressEvent(event);
        return;
    }
    d_ptr->m_bDragging = true;
    d_ptr->m_dragOffset = event->globalPos() - pos();
    event->accept();
}

void CWinAbout::mouseMoveEvent(QMouseEvent* event)
{
    if (d_ptr->m_bDragging && (event->buttons() & Qt::LeftButton)) {
        move(event->globalPos() - d_ptr->m_dragOffset);
        event->accept();
        return;
    }
    QDialog::mouseMoveEvent(event);
}

void CWinAbout::mouseReleaseEvent(QMouseEvent* event)
{
    d_ptr->m_bDragging = false;
    QDialog::mouseReleaseEvent(event);
}
