#include "noticeWinParts.h"

#include "cqbutton.h"
#include "cqframe.h"
#include "cqlabel.h"
#include "cqtitlebuttons.h"
#include "prompttitlewin.h"

#include <QHBoxLayout>

namespace NoticeWinParts {

namespace {

int const kTitleWidth = 380;
int const kTitleHeight = 48;
int const kHeadingWidth = 332;
int const kLineHeight = 24;
int const kSideMargin = 24;

} // namespace

QString headingStyle(int uiType)
{
    if (uiType == 1)
        return QStringLiteral("#m_pLabMsgTitle{font-family:Noto Sans CJK SC;font-size: 14px;color: rgba(51,52,68,0.85);}");
    return QStringLiteral("#m_pLabMsgTitle{font-family:Noto Sans CJK SC;font-size: 16px;color: rgb(51,52,68);}");
}

PromptTitleWin* createTitleWin(QWidget* parent, int type, QString const& title)
{
    auto* titleWin = new PromptTitleWin(parent);
    titleWin->setFixedSize(kTitleWidth, kTitleHeight);
    titleWin->setParas(type, title, false, true);
    return titleWin;
}

CQLabel* createHeading(QWidget* parent)
{
    auto* heading = new CQLabel(parent);
    heading->setObjectName(QStringLiteral("m_pLabMsgTitle"));
    heading->setTextFormat(Qt::PlainText);
    heading->setFixedSize(kHeadingWidth, kLineHeight);
    return heading;
}

CQLabel* createBody(QWidget* parent, int width, Qt::Alignment alignment)
{
    auto* body = new CQLabel(parent);
    body->setObjectName(QStringLiteral("m_pLabMsgContent"));
    // Backend and device texts: a device's name is chosen by whoever made it.
    body->setTextFormat(Qt::PlainText);
    body->setFixedWidth(width);
    body->setAlignment(alignment);
    body->setWordWrap(true);
    return body;
}

QHBoxLayout* createStripRow(QWidget* stripTitle, CQCloseBtn* closeBtn)
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(kSideMargin, 0, kSideMargin, 0);
    row->setSpacing(0);
    row->addWidget(stripTitle);
    row->addStretch();
    row->addWidget(closeBtn);
    return row;
}

CQCloseBtn* createCloseBtn(QWidget* parent)
{
    auto* closeBtn = new CQCloseBtn(1, parent);
    closeBtn->setFixedSize(kLineHeight, kLineHeight);
    return closeBtn;
}

CQFrame* createBottom(QWidget* parent, QWidget* left, QWidget* right)
{
    auto* bottom = new CQFrame(parent);
    bottom->setObjectName(QStringLiteral("m_pWinBottom"));
    bottom->setFixedWidth(kTitleWidth);
    auto* row = new QHBoxLayout(bottom);
    row->setSpacing(0);
    row->setContentsMargins(kSideMargin, kSideMargin, kSideMargin, kSideMargin);
    if (left)
        row->addWidget(left);
    row->addStretch();
    row->addWidget(right);
    // Its height enters the stacking height: the window's layout must not stretch it.
    bottom->setFixedHeight(bottom->sizeHint().height());
    return bottom;
}

void setElided(CQLabel* label, QString const& text)
{
    CQLabel::TextWidthAdjustLabel(label, 16, text, Qt::ElideRight, 0);
}

void fitBodyHeight(CQLabel* body)
{
    body->adjustSize();
    // adjustSize() measures a wrapped label at its preferred width, not at the
    // fixed one it has; the stack heights need the real one.
    body->setMinimumHeight(body->heightForWidth(body->width()));
    body->resize(body->width(), body->minimumHeight());
}

void connectClosers(QWidget* window, PromptTitleWin* titleWin, CQButton* mainBtn, CQCloseBtn* closeBtn)
{
    QObject::connect(titleWin, &PromptTitleWin::sig_close_btn_clicked, window, &QWidget::close);
    QObject::connect(mainBtn, &CQButton::clicked, window, &QWidget::close);
    QObject::connect(mainBtn, &CQButton::sig_time_is_zero, window, &QWidget::close);
    QObject::connect(closeBtn, &CQCloseBtn::clicked, window, &QWidget::close);
}

} // namespace NoticeWinParts
