#include "mainExitAskWin.h"

#include "clogdebug.h"
#include "cqbutton.h"
#include "cqcheckbox.h"
#include "promptkeys.h"
#include "prompttitlewin.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

char const* const kModule = "plugins/base/interface/mainExitAskWin";
char const* const kStyle =
    "#MainExitAskWin{background:#FFFFFF;border:1px solid #DFE1E6;}"
    "#MainExitAskWin QCheckBox{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;}";

CQCheckBox* checkBox(char const* text, char const* name, QWidget* parent)
{
    auto* box = new CQCheckBox(QString::fromUtf8(text), parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

} // namespace

MainExitAskWin::MainExitAskWin(QWidget* parent)
    : QWidget(parent)
{
    qRegisterMetaType<MainExitAskWin::eSelectedItem>("MainExitAskWin::eSelectedItem");
    InitUI();
    InitControl();
}

MainExitAskWin::~MainExitAskWin()
{
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[MainExitAskWin] delete MainExitAskWin obj");
}

void MainExitAskWin::InitUI()
{
    setObjectName(QStringLiteral("MainExitAskWin"));
    setWindowTitle(QString::fromUtf8("关闭"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_StyledBackground);
    setWindowModality(parentWidget() ? Qt::WindowModal : Qt::NonModal);
    setFixedSize(360, 190);
    setStyleSheet(QString::fromLatin1(kStyle));

    m_pTitleWin = new PromptTitleWin(this);
    m_pTitleWin->setParas(PromptTitleWin::TYPE_NORMAL, QString::fromUtf8("关闭"), true, true);

    m_pCheckBoxMin = checkBox("最小化到托盘", "m_pCheckBoxMin", this);
    m_pCheckBoxQuit = checkBox("退出程序", "m_pCheckBoxQuit", this);
    m_pCheckBoxRemmemberChoose = checkBox("记住选择", "m_pCheckBoxRemmemberChoose", this);
    // Exclusive: exactly one of the two is always checked.
    auto* choice = new QButtonGroup(this);
    choice->setExclusive(true);
    choice->addButton(m_pCheckBoxMin);
    choice->addButton(m_pCheckBoxQuit);
    m_pCheckBoxMin->setChecked(true);

    m_pBtnCancel = new CQButton(QString::fromUtf8("取消"), CQButton::KIND_SECONDARY, 14, 400, this);
    m_pBtnCancel->setObjectName(QStringLiteral("m_pBtnCancel"));
    m_pBtnCancel->setFixedSize(88, 32);
    m_pBtnOK = new CQButton(QString::fromUtf8("确定"), CQButton::KIND_PRIMARY, 14, 400, this);
    m_pBtnOK->setObjectName(QStringLiteral("m_pBtnOK"));
    m_pBtnOK->setFixedSize(88, 32);

    auto* choices = new QHBoxLayout();
    choices->setSpacing(40);
    choices->addWidget(m_pCheckBoxMin);
    choices->addWidget(m_pCheckBoxQuit);
    choices->addStretch(1);
    auto* buttons = new QHBoxLayout();
    buttons->setSpacing(12);
    buttons->addWidget(m_pCheckBoxRemmemberChoose);
    buttons->addStretch(1);
    buttons->addWidget(m_pBtnCancel);
    buttons->addWidget(m_pBtnOK);
    auto* body = new QVBoxLayout();
    body->setContentsMargins(24, 20, 24, 20);
    body->addLayout(choices);
    body->addStretch(1);
    body->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_pTitleWin);
    layout->addLayout(body, 1);
}

void MainExitAskWin::InitControl()
{
    connect(m_pBtnOK, &QPushButton::clicked, this, &MainExitAskWin::slot_ok);
    connect(m_pBtnCancel, &QPushButton::clicked, this, &MainExitAskWin::slot_cancel);
    connect(m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, this, &MainExitAskWin::slot_cancel);
}

MainExitAskWin::eSelectedItem MainExitAskWin::selectedItem() const
{
    if (m_pCheckBoxMin->isChecked())
        return ESELECTEDITEM_MINIMIZE;
    return ESELECTEDITEM_QUIT;
}

bool MainExitAskWin::isRemembered() const
{
    return m_pCheckBoxRemmemberChoose->isChecked();
}

void MainExitAskWin::keyPressEvent(QKeyEvent* event)
{
    if (!PromptKeys::handle(event, m_pBtnOK, [this]() { slot_cancel(); }))
        QWidget::keyPressEvent(event);
}

void MainExitAskWin::slot_ok()
{
    emit sig_ok_btn_clicked(selectedItem(), isRemembered());
}

void MainExitAskWin::slot_cancel()
{
    emit sig_close_win();
    close();
}
