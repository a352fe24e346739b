#include "promotwin.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqnoticeicon.h"
#include "promptkeys.h"
#include "prompttitlewin.h"
#include "promptwindow_p.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

char const* const kModule = "platform/basegui/promotwin";
constexpr int kDefaultWidth = 420;
constexpr int kMinWidth = 280;

char const* const kStyle =
    "#PromotWin{background:#FFFFFF;border:1px solid #DFE1E6;}"
    "#m_pLabText{font-family:\"Noto Sans CJK SC\";font-size:16px;color:#333444;}"
    "#m_pLabSubText{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#515260;}"
    "#m_pLabDetail{font-family:\"Noto Sans CJK SC\";font-size:12px;color:#7A7B85;}";

QLabel* textLabel(QString const& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    // Texts come from the backend and other plugins: never interpret markup.
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

void setText(QLabel* label, QString const& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

} // namespace

struct PromotWin::Private
{
    PromotWin* q = nullptr;
    sInfo info;
    int result = RESULT_NONE;
    bool closeSent = false;
    PromptTitleWin* title = nullptr;
    CQNoticeIcon* icon = nullptr;
    QLabel* text = nullptr;
    QLabel* subText = nullptr;
    QLabel* detail = nullptr;
    CQAutoCountDownWin* countDown = nullptr;
    CQButton* left = nullptr;
    CQButton* right = nullptr;

    void InitUI();
    void InitUIBody(QVBoxLayout* main);
    void InitUIBottom(QVBoxLayout* main);
    void InitControl();
    void answer(int which);
};

void PromotWin::Private::InitUI()
{
    q->setObjectName("PromotWin");
    q->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    q->setAttribute(Qt::WA_DeleteOnClose);
    q->setAttribute(Qt::WA_StyledBackground);
    q->setStyleSheet(kStyle);
    q->setFixedWidth(kDefaultWidth);

    auto* main = new QVBoxLayout(q);
    main->setContentsMargins(0, 0, 0, 0);
    main->setSpacing(0);
    title = new PromptTitleWin(q);
    main->addWidget(title);
    InitUIBody(main);
    InitUIBottom(main);
}

void PromotWin::Private::InitUIBody(QVBoxLayout* main)
{
    icon = new CQNoticeIcon(CQNoticeIcon::ICON_INFO, q);
    QVBoxLayout* texts = basegui::detail::addNoticeBody(main, icon);
    text = textLabel("m_pLabText", q);
    subText = textLabel("m_pLabSubText", q);
    detail = textLabel("m_pLabDetail", q);
    texts->addWidget(text);
    texts->addWidget(subText);
    texts->addWidget(detail);
}

void PromotWin::Private::InitUIBottom(QVBoxLayout* main)
{
    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(24, 24, 24, 24);
    bottom->setSpacing(12);
    countDown = new CQAutoCountDownWin(q);
    left = new CQButton(QString(), CQButton::KIND_SECONDARY, 14, 400, q);
    left->setObjectName("m_pBtnLeft");
    left->setFixedSize(88, 32);
    right = new CQButton(QString(), CQButton::KIND_PRIMARY, 14, 400, q);
    right->setObjectName("m_pBtnRight");
    right->setFixedSize(88, 32);
    bottom->addWidget(countDown);
    bottom->addStretch(1);
    bottom->addWidget(left);
    bottom->addWidget(right);
    main->addLayout(bottom);
}

void PromotWin::Private::InitControl()
{
    QObject::connect(title, &PromptTitleWin::sig_close_btn_clicked, q, &QWidget::close);
    QObject::connect(left, &QPushButton::clicked, q, [this]() { answer(RESULT_LEFT); });
    QObject::connect(right, &QPushButton::clicked, q, [this]() { answer(RESULT_RIGHT); });
    QObject::connect(countDown, &CQAutoCountDownWin::sig_time_is_zero, q, [this]() { answer(RESULT_TIMEOUT); });
}

void PromotWin::Private::answer(int which)
{
    result = which;
    countDown->stop();
    if (which == RESULT_LEFT)
        emit q->sig_left_btn_clicked();
    else if (which == RESULT_RIGHT)
        emit q->sig_right_btn_clicked();
    else
        emit q->sig_time_is_zero();
    q->close();
}

PromotWin::PromotWin(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
    d->q = this;
    d->InitUI();
    d->InitControl();
    setParas(sInfo());
}

PromotWin::~PromotWin()
{
    delete d;
    d = nullptr;
}

void PromotWin::setParas(sInfo const& info)
{
    d->info = info;
    if (info.kind < KIND_INFO || info.kind > KIND_URGENT)
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[PromotWin] kind [%d] not support, use 1", info.kind);
    int const width = info.width < kMinWidth ? kDefaultWidth : info.width;
    setFixedWidth(width);
    setWindowModality(info.modal == 1 && parentWidget() ? Qt::WindowModal : Qt::NonModal);

    QString const title = info.title.isEmpty() ? QString::fromUtf8("提示") : info.title;
    d->title->setParas(info.kind == KIND_URGENT ? PromptTitleWin::TYPE_URGENT : PromptTitleWin::TYPE_NORMAL,
                       title, false, true);
    setWindowTitle(title);
    d->icon->setIconType(noticeIconType(info.kind));
    setText(d->text, info.text);
    setText(d->subText, info.subText);
    setText(d->detail, info.detail);

    d->left->setParas(info.leftBtnKind, 14, 400);
    d->left->setText(info.leftBtnText);
    d->left->setVisible(!info.leftBtnText.isEmpty());
    d->right->setParas(info.rightBtnKind, 14, 400);
    d->right->setText(info.rightBtnText.isEmpty() ? QString::fromUtf8("确定") : info.rightBtnText);

    d->countDown->setInfo(info.countDown);
    if (isVisible())
        d->countDown->start();
    basegui::detail::fitHeightToWidth(this);
}

PromotWin::sInfo PromotWin::paras() const
{
    return d->info;
}

int PromotWin::result() const
{
    return d->result;
}

PromptTitleWin* PromotWin::titleWin() const
{
    return d->title;
}

CQButton* PromotWin::leftButton() const
{
    return d->left;
}

CQButton* PromotWin::rightButton() const
{
    return d->right;
}

CQNoticeIcon* PromotWin::noticeIcon() const
{
    return d->icon;
}

CQAutoCountDownWin* PromotWin::countDownWin() const
{
    return d->countDown;
}

int PromotWin::noticeIconType(int kind)
{
    switch (kind) {
    case KIND_SUCCESS: return CQNoticeIcon::ICON_SUCCESS;
    case KIND_WARNING: return CQNoticeIcon::ICON_WARNING;
    case KIND_ERROR: return CQNoticeIcon::ICON_ERROR;
    case KIND_URGENT: return CQNoticeIcon::ICON_URGENT;
    default: return CQNoticeIcon::ICON_INFO;
    }
}

void PromotWin::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    basegui::detail::fitHeightToWidth(this);
    basegui::Common::setWidgetMidPos(this, parentWidget() ? parentWidget()->window() : nullptr, QPoint(0, 0));
    d->countDown->start();
}

void PromotWin::keyPressEvent(QKeyEvent* event)
{
    if (!PromptKeys::handle(event, d->right, [this]() { close(); }))
        QWidget::keyPressEvent(event);
}

void PromotWin::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    if (!event->isAccepted() || d->closeSent)
        return;
    d->closeSent = true;
    d->countDown->stop();
    emit sig_close();
}
