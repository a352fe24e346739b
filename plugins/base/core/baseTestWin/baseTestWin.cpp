#include "baseTestWin.h"

#include "baseTestOrderPage.h"
#include "baseTestPopupPage.h"
#include "baseTestStatusPage.h"
#include "basegui_common.h"
#include "clogdebug.h"
#include "cqlabel.h"
#include "prompttitlewin.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr char kLogModule[] = "plugins/base/core/baseTestWin/baseTestWin";
constexpr int kWidth = 760;
constexpr int kHeight = 600;
constexpr int kNavigateWidth = 132;
constexpr int kFooterHeight = 44;

} // namespace

class BaseTestWinPrivate
{
public:
    explicit BaseTestWinPrivate(BaseTestWin* q);

    void InitUIWin();
    void InitUITitle();
    void InitUIBody();
    void InitUIFooter();
    void setStatus(QString const& text);

    BaseTestWin* q_ptr = nullptr;
    QVBoxLayout* m_pLayout = nullptr;
    PromptTitleWin* m_pTitleWin = nullptr;
    QListWidget* m_pListPages = nullptr;
    QStackedWidget* m_pStackPages = nullptr;
    QSpinBox* m_pSpinRepeat = nullptr;
    CQLabel* m_pLabStatus = nullptr;
    QList<BaseTestPage*> m_pages;
};

BaseTestWinPrivate::BaseTestWinPrivate(BaseTestWin* q)
    : q_ptr(q)
{
    InitUIWin();
    InitUITitle();
    InitUIBody();
    InitUIFooter();
}

void BaseTestWinPrivate::InitUIWin()
{
    q_ptr->setObjectName(QStringLiteral("BaseTestWin"));
    q_ptr->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    q_ptr->setWindowTitle(QString::fromUtf8("基础测试"));
    q_ptr->setAttribute(Qt::WA_DeleteOnClose);
    q_ptr->setAttribute(Qt::WA_StyledBackground);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/baseTestWin.qss")));
    q_ptr->setFixedSize(kWidth, kHeight);
    m_pLayout = new QVBoxLayout(q_ptr);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(0);
}

void BaseTestWinPrivate::InitUITitle()
{
    m_pTitleWin = new PromptTitleWin(q_ptr);
    m_pTitleWin->setParas(PromptTitleWin::TYPE_NORMAL, QString::fromUtf8("基础测试"), false, true);
    m_pLayout->addWidget(m_pTitleWin);
}

void BaseTestWinPrivate::InitUIBody()
{
    m_pListPages = new QListWidget(q_ptr);
    m_pListPages->setObjectName(QStringLiteral("m_pListPages"));
    m_pListPages->setFixedWidth(kNavigateWidth);
    m_pListPages->setFrameShape(QFrame::NoFrame);
    m_pStackPages = new QStackedWidget(q_ptr);
    m_pStackPages->setObjectName(QStringLiteral("m_pStackPages"));

    m_pages << new BaseTestPopupPage() << new BaseTestOrderPage() << new BaseTestStatusPage();
    for (BaseTestPage* page : qAsConst(m_pages)) {
        m_pListPages->addItem(page->title());
        m_pStackPages->addWidget(page);
    }
    m_pListPages->setCurrentRow(0);

    auto* body = new QHBoxLayout();
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(m_pListPages);
    body->addWidget(m_pStackPages, 1);
    m_pLayout->addLayout(body, 1);
}

void BaseTestWinPrivate::InitUIFooter()
{
    auto* footer = new QFrame(q_ptr);
    footer->setObjectName(QStringLiteral("m_pWinFooter"));
    footer->setFixedHeight(kFooterHeight);
    auto* repeatLabel = new QLabel(QString::fromUtf8("重复"), footer);
    repeatLabel->setObjectName(QStringLiteral("m_pLabRepeat"));
    m_pSpinRepeat = new QSpinBox(footer);
    m_pSpinRepeat->setObjectName(QStringLiteral("m_pSpinRepeat"));
    m_pSpinRepeat->setRange(1, BaseTestPage::kMaxRepeat);
    m_pSpinRepeat->setSuffix(QString::fromUtf8(" 次"));
    m_pSpinRepeat->setFixedWidth(80);
    // Plain text, elided to the line: the reasons quote what the tester typed.
    m_pLabStatus = new CQLabel(footer);
    m_pLabStatus->setObjectName(QStringLiteral("m_pLabStatus"));
    m_pLabStatus->setTextFormat(Qt::PlainText);
    m_pLabStatus->setText(QString::fromUtf8("勾选事件、填好字段后点击“发送”。"));

    auto* layout = new QHBoxLayout(footer);
    layout->setContentsMargins(16, 0, 16, 0);
    layout->setSpacing(8);
    layout->addWidget(repeatLabel);
    layout->addWidget(m_pSpinRepeat);
    layout->addSpacing(16);
    layout->addWidget(m_pLabStatus, 1);
    m_pLayout->addWidget(footer);
}

void BaseTestWinPrivate::setStatus(QString const& text)
{
    CQLabel::LabelWidthAdjustText(m_pLabStatus, text);
}

BaseTestWin::BaseTestWin(QWidget* parent)
    : QWidget(parent)
    , d_ptr(new BaseTestWinPrivate(this))
{
    InitControl();
    basegui::Common::setWidgetMidPos(this, nullptr, QPoint(0, 0));
}

BaseTestWin::~BaseTestWin()
{
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[BaseTestWin] delete BaseTestWin obj");
}

void BaseTestWin::InitControl()
{
    connect(d_ptr->m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, this, &QWidget::close);
    connect(d_ptr->m_pListPages, &QListWidget::currentRowChanged, this, &BaseTestWin::slot_showPage);
    for (BaseTestPage* page : qAsConst(d_ptr->m_pages))
        connect(page, &BaseTestPage::sig_sendRequested, this, [this, page]() { slot_sendPage(page); });
}

QList<BaseTestPage*> BaseTestWin::pages() const
{
    return d_ptr->m_pages;
}

QString BaseTestWin::statusText() const
{
    return CQLabel::fullText(d_ptr->m_pLabStatus);
}

int BaseTestWin::repeatCount() const
{
    return d_ptr->m_pSpinRepeat->value();
}

void BaseTestWin::slot_showPage(int index)
{
    if (index < 0 || index >= d_ptr->m_pages.size())
        return;
    d_ptr->m_pStackPages->setCurrentIndex(index);
    if (d_ptr->m_pListPages->currentRow() != index)
        d_ptr->m_pListPages->setCurrentRow(index);
}

void BaseTestWin::slot_sendPage(BaseTestPage* page)
{
    if (!page || !d_ptr->m_pages.contains(page)) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "[BaseTestWin] page is not one of this window, ignored");
        return;
    }
    d_ptr->setStatus(page->send(repeatCount()));
}

// Child editors leave Esc to their window.
void BaseTestWin::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}
