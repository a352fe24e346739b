#include "prompttitlewin.h"

#include "clogdebug.h"
#include "cqlabel.h"
#include "cqnoticeicon.h"
#include "cqtitlebuttons.h"

#include <QColor>
#include <QHBoxLayout>
#include <QMouseEvent>

namespace {

char const* const kModule = "platform/basegui/prompttitlewin";

struct Look
{
    char const* background;
    char const* text;
    int closeStyle;   // CQCloseBtn style: 1 dark on light, 0 light on colour
};

Look const kLooks[] = {
    { "#DAE9FF", "#333444", 1 },
    { "#356DEE", "#FFFFFF", 0 },
    { "qlineargradient(x1:1, y1:0, x2:0, y2:0, stop:0 #f37344, stop:1 #fc2f3d)", "#FFFFFF", 0 },
};

} // namespace

PromptTitleWin::PromptTitleWin(QWidget* parent)
    : QFrame(parent)
{
    InitUI();
    setParas(TYPE_NORMAL, QString(), false, true);
}

PromptTitleWin::~PromptTitleWin() = default;

void PromptTitleWin::InitUI()
{
    setObjectName("PromptTitleWin");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(46);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 12, 0);
    layout->setSpacing(8);

    m_pIcon = new CQNoticeIcon(CQNoticeIcon::ICON_SHIELD, this);
    m_pIcon->setFixedSize(20, 20);
    m_pLabelTitle = new CQLabel(this);
    m_pLabelTitle->setObjectName("m_pLabelTitle");
    m_pLabelTitle->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    layout->addWidget(m_pIcon);
    layout->addWidget(m_pLabelTitle, 1);
}

void PromptTitleWin::setParas(int type, QString const& title, bool showIcon, bool showClose)
{
    if (type < TYPE_NORMAL || type > TYPE_URGENT) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[PromptTitleWin] type [%d] not support, use 0", type);
        type = TYPE_NORMAL;
    }
    m_type = type;
    m_background.clear();
    m_titleColor.clear();

    // The close button's look is fixed at construction, so a type change
    // that needs the other look gets a new button.
    int const closeStyle = kLooks[type].closeStyle;
    if (!m_pCloseBtn || m_pCloseBtn->style() != closeStyle) {
        delete m_pCloseBtn;
        m_pCloseBtn = new CQCloseBtn(closeStyle, this);
        m_pCloseBtn->setObjectName("m_pBtnClose");
        m_pCloseBtn->setFixedSize(22, 22);
        layout()->addWidget(m_pCloseBtn);
        connect(m_pCloseBtn, &QPushButton::clicked, this, &PromptTitleWin::sig_close_btn_clicked);
    }
    m_pIcon->setVisible(showIcon);
    m_pCloseBtn->setVisible(showClose);
    applyStyle();
    setTitle(title);
}

void PromptTitleWin::setTitle(QString const& title)
{
    // A CQLabel refits the elided title itself whenever its width changes.
    CQLabel::LabelWidthAdjustText(m_pLabelTitle, title, Qt::ElideRight);
}

QString PromptTitleWin::title() const
{
    return CQLabel::fullText(m_pLabelTitle);
}

int PromptTitleWin::type() const
{
    return m_type;
}

void PromptTitleWin::setBackgroundColor(QString const& color)
{
    if (!QColor::isValidColor(color)) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[PromptTitleWin] invalid colour [%s]", qUtf8Printable(color));
        return;
    }
    m_background = color;
    applyStyle();
}

void PromptTitleWin::setTitleColor(QString const& color)
{
    if (!QColor::isValidColor(color)) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[PromptTitleWin] invalid colour [%s]", qUtf8Printable(color));
        return;
    }
    m_titleColor = color;
    applyStyle();
}

QAbstractButton* PromptTitleWin::closeButton() const
{
    return m_pCloseBtn;
}

void PromptTitleWin::applyStyle()
{
    Look const& look = kLooks[m_type];
    QString const background = m_background.isEmpty() ? QLatin1String(look.background) : m_background;
    QString const text = m_titleColor.isEmpty() ? QLatin1String(look.text) : m_titleColor;
    setStyleSheet(QStringLiteral("#PromptTitleWin{background:%1;border:none;}"
                                 "#m_pLabelTitle{font-family:\"Noto Sans CJK SC\";font-size:14px;font-weight:500;"
                                 "color:%2;background:transparent;}")
                      .arg(background, text));
}

void PromptTitleWin::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QFrame::mousePressEvent(event);
        return;
    }
    m_dragging = true;
    m_dragOffset = event->globalPos() - window()->pos();
    event->accept();
}

void PromptTitleWin::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !(event->buttons() & Qt::LeftButton) || !window()->isWindow()) {
        QFrame::mouseMoveEvent(event);
        return;
    }
    window()->move(event->globalPos() - m_dragOffset);
    event->accept();
}

void PromptTitleWin::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    QFrame::mouseReleaseEvent(event);
}
