#include "promptdialog.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqnoticeicon.h"
#include "promptkeys.h"
#include "prompttitlewin.h"
#include "promptwindow_p.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

char const* const kStyle =
    "#PromptDialog{background:#FFFFFF;border:1px solid #DFE1E6;}"
    "#m_pLabLine1{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;}"
    "#m_pLabLine2{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#515260;}";

QLabel* lineLabel(char const* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

PromptDialog::PromptDialog(QWidget* parent)
    : QDialog(parent)
{
    InitUI();
    InitControl();
    setParas(MODE_TWO_ROW_TWO_BTN, QString());
}

PromptDialog::PromptDialog(int mode, QString const& line1, QString const& line2, QWidget* parent)
    : PromptDialog(parent)
{
    setParas(mode, line1, line2);
}

PromptDialog::~PromptDialog() = default;

void PromptDialog::InitUI()
{
    setObjectName("PromptDialog");
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    setModal(true);
    setStyleSheet(kStyle);
    setFixedWidth(400);

    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(0, 0, 0, 0);
    main->setSpacing(0);
    m_pTitleWin = new PromptTitleWin(this);
    m_pTitleWin->setParas(PromptTitleWin::TYPE_NORMAL, QString::fromUtf8("提示"), false, true);
    main->addWidget(m_pTitleWin);

    m_pIcon = new CQNoticeIcon(CQNoticeIcon::ICON_WARNING, this);
    QVBoxLayout* lines = basegui::detail::addNoticeBody(main, m_pIcon);
    m_pLabLine1 = lineLabel("m_pLabLine1", this);
    m_pLabLine2 = lineLabel("m_pLabLine2", this);
    lines->addWidget(m_pLabLine1);
    lines->addWidget(m_pLabLine2);

    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(24, 24, 24, 24);
    bottom->setSpacing(12);
    bottom->addStretch(1);
    m_pBtnCancel = new CQButton(QString::fromUtf8("取消"), CQButton::KIND_SECONDARY, 14, 400, this);
    m_pBtnCancel->setObjectName("m_pBtnCancel");
    m_pBtnCancel->setFixedSize(88, 32);
    m_pBtnOk = new CQButton(QString::fromUtf8("确定"), CQButton::KIND_PRIMARY, 14, 400, this);
    m_pBtnOk->setObjectName("m_pBtnOk");
    m_pBtnOk->setFixedSize(88, 32);
    bottom->addWidget(m_pBtnCancel);
    bottom->addWidget(m_pBtnOk);
    main->addLayout(bottom);
}

void PromptDialog::InitControl()
{
    connect(m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, this, &QDialog::reject);
    connect(m_pBtnCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_pBtnOk, &QPushButton::clicked, this, &QDialog::accept);
}

void PromptDialog::keyPressEvent(QKeyEvent* event)
{
    if (!PromptKeys::handle(event, m_pBtnOk, [this]() { reject(); }))
        QDialog::keyPressEvent(event);
}

void PromptDialog::setParas(int mode, QString const& line1, QString const& line2)
{
    if (mode < MODE_ONE_ROW_ONE_BTN || mode > MODE_TWO_ROW_TWO_BTN) {
        BFLOG(3, "platform/basegui/promptdialog", "[PromptDialog] mode [%d] not support, use 3", mode);
        mode = MODE_TWO_ROW_TWO_BTN;
    }
    m_mode = mode;
    bool const twoRows = mode == MODE_TWO_ROW_ONE_BTN || mode == MODE_TWO_ROW_TWO_BTN;
    bool const twoButtons = mode == MODE_ONE_ROW_TWO_BTN || mode == MODE_TWO_ROW_TWO_BTN;
    m_pLabLine1->setText(line1);
    m_pLabLine2->setText(twoRows ? line2 : QString());
    m_pLabLine2->setVisible(twoRows);
    m_pBtnCancel->setVisible(twoButtons);
    basegui::detail::fitHeightToWidth(this);
}

int PromptDialog::mode() const
{
    return m_mode;
}

void PromptDialog::setTitle(QString const& title)
{
    m_pTitleWin->setTitle(title);
    setWindowTitle(title);
}

void PromptDialog::setButtonTexts(QString const& okText, QString const& cancelText)
{
    if (!okText.isEmpty())
        m_pBtnOk->setText(okText);
    if (!cancelText.isEmpty())
        m_pBtnCancel->setText(cancelText);
}

void PromptDialog::setIconType(int noticeIconType)
{
    m_pIcon->setIconType(noticeIconType);
}

void PromptDialog::centreOn(QWidget* w)
{
    basegui::detail::fitHeightToWidth(this);
    basegui::Common::setWidgetMidPos(this, w ? w->window() : nullptr, QPoint(0, 0));
}

CQButton* PromptDialog::okButton() const
{
    return m_pBtnOk;
}

CQButton* PromptDialog::cancelButton() const
{
    return m_pBtnCancel;
}

PromptTitleWin* PromptDialog::titleWin() const
{
    return m_pTitleWin;
}
