#include "basecardwin.h"

#include "basegui_common.h"
#include "clogdebug.h"

#include <QLabel>

namespace {

char const* const kModule = "platform/basegui/basecardwin";

constexpr int kMargin = 16;
constexpr int kBlocksTop = 48;
constexpr int kHGap = 8;
constexpr int kVGap = 4;

char const* const kCardStyle =
    "#BaseCardWin{background:#FFFFFF;border:1px solid #DFE1E6;border-radius:8px;}"
    "#m_pLabelCardTitle{font-family:\"Noto Sans CJK SC\";font-size:14px;color:#333444;font-weight:500;"
    "background:transparent;border:none;}";

} // namespace

struct BaseCardWin::Private
{
    BaseCardWin* q = nullptr;
    QLabel* title = nullptr;
    QPointer<QWidget> state;
    QMap<int, QPointer<QWidget>> blocks;
    bool ended = false;

    void InitUI();
    void placeState();
    void layoutBlocks();
};

void BaseCardWin::Private::InitUI()
{
    q->setObjectName("BaseCardWin");
    q->setAttribute(Qt::WA_StyledBackground);
    q->setFixedSize(CardWidth, CardHeight);
    q->setStyleSheet(kCardStyle);

    title = new QLabel(q);
    title->setObjectName("m_pLabelCardTitle");
    title->setTextFormat(Qt::PlainText);
    title->setGeometry(kMargin, 14, CardWidth - 2 * kMargin - 40, 22);
}

void BaseCardWin::Private::placeState()
{
    if (!state)
        return;
    QSize const size = state->size();
    state->move(CardWidth - kMargin - size.width(), 16);
    state->show();
}

// Highest key first, flowing left to right and wrapping inside the card.
void BaseCardWin::Private::layoutBlocks()
{
    int x = kMargin;
    int y = kBlocksTop;
    int rowHeight = 0;
    for (auto it = blocks.end(); it != blocks.begin();) {
        --it;
        QWidget* w = it.value();
        if (!w)
            continue;
        QSize const size = w->size();
        if (x > kMargin && x + size.width() > CardWidth - kMargin) {
            x = kMargin;
            y += rowHeight + kVGap;
            rowHeight = 0;
        }
        w->move(x, y);
        w->show();
        x += size.width() + kHGap;
        rowHeight = qMax(rowHeight, size.height());
    }
}

BaseCardWin::BaseCardWin(QWidget* parent)
    : QFrame(parent)
    , d(new Private)
{
    d->q = this;
    d->InitUI();
}

BaseCardWin::~BaseCardWin()
{
    delete d;
    d = nullptr;
}

void BaseCardWin::setTitle(QString const& title)
{
    d->title->setText(title);
}

QString BaseCardWin::title() const
{
    return d->title->text();
}

void BaseCardWin::setStateWidget(QWidget* w)
{
    if (d->state && d->state != w)
        d->state->hide();
    d->state = w;
    if (!w)
        return;
    w->setParent(this);
    d->placeState();
}

QWidget* BaseCardWin::stateWidget() const
{
    return d->state;
}

int BaseCardWin::registerItem(QWidget* w, int key)
{
    if (!w) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BaseCardWin] widget is null, key is [%d]", key);
        return -1;
    }
    if (basegui::Common::refusesOwnAncestor(this, w, "BaseCardWin"))
        return -1;
    if (d->blocks.value(key)) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BaseCardWin] key [%d] exists, not register.", key);
        return -1;
    }
    w->setParent(this);
    d->blocks.insert(key, QPointer<QWidget>(w));
    if (d->ended)
        d->layoutBlocks();
    else
        w->hide();
    return 0;
}

void BaseCardWin::end()
{
    d->ended = true;
    d->placeState();
    d->layoutBlocks();
}
