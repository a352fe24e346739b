#include "cqbutton.h"

#include "clogdebug.h"
#include "cqloadingwin.h"

#include <QIcon>
#include <QTimer>

namespace {

char const* const kModule = "platform/basegui/cqbutton";
constexpr int kLoadingFrameMs = 40;

struct KindLook
{
    char const* normal;
    char const* hover;
    char const* pressed;
    char const* disabled;
    char const* spinner;
};

// background, text and border of each state, per kind
KindLook const kLooks[] = {
    { "background:#356DEE;color:#FFFFFF;border:none;",
      "background:#5A88F2;", "background:#2A57C0;", "background:#A9C0F6;color:#FFFFFF;", "#FFFFFF" },
    { "background:#EBF3FF;color:#356DEE;border:none;",
      "background:#DCEAFF;", "background:#C9DDFF;", "background:#F3F6FB;color:#A9C0F6;", "#356DEE" },
    { "background:#FFFFFF;color:#333444;border:1px solid #DFE1E6;",
      "color:#356DEE;border:1px solid #356DEE;", "background:#EBF3FF;color:#2A57C0;border:1px solid #2A57C0;",
      "background:#F7F8FA;color:#B5B6BD;border:1px solid #DFE1E6;", "#356DEE" },
    { "background:#F5455C;color:#FFFFFF;border:none;",
      "background:#F7677A;", "background:#D93A4F;", "background:#F9B4BE;color:#FFFFFF;", "#FFFFFF" },
};

constexpr int kKindCount = int(sizeof(kLooks) / sizeof(kLooks[0]));

} // namespace

struct CQButton::Private
{
    CQButton* q = nullptr;
    int kind = KIND_PRIMARY;
    int fontSize = 14;
    int fontWeight = 400;

    QTimer* countTimer = nullptr;
    int remaining = 0;
    QString plain;       // the caption without suffix
    QString shown;       // what we last put on the button

    QTimer* loadingTimer = nullptr;
    bool loading = false;
    int loadingSize = 14;
    int loadingStep = 15;
    int loadingAngle = 0;
    QIcon savedIcon;
    QSize savedIconSize;

    void InitVars();
    void applyStyle();
    void adoptExternalText();
    void showText();
    void slot_countTick();
    void slot_loadingTick();
};

void CQButton::Private::InitVars()
{
    q->setCursor(Qt::PointingHandCursor);
    q->setFocusPolicy(Qt::NoFocus);
    countTimer = new QTimer(q);
    countTimer->setInterval(1000);
    QObject::connect(countTimer, &QTimer::timeout, q, [this]() { slot_countTick(); });
    loadingTimer = new QTimer(q);
    loadingTimer->setInterval(kLoadingFrameMs);
    QObject::connect(loadingTimer, &QTimer::timeout, q, [this]() { slot_loadingTick(); });
    applyStyle();
}

void CQButton::Private::applyStyle()
{
    KindLook const& look = kLooks[kind];
    QString const font = QStringLiteral("font-family:\"Noto Sans CJK SC\";font-size:%1px;font-weight:%2;")
                             .arg(fontSize)
                             .arg(fontWeight);
    q->setStyleSheet(QStringLiteral("CQButton{%1border-radius:4px;padding:0px 2px;%2}"
                                    "CQButton:hover{%3}CQButton:pressed{%4}CQButton:disabled{%5}")
                         .arg(QLatin1String(look.normal), font, QLatin1String(look.hover),
                              QLatin1String(look.pressed), QLatin1String(look.disabled)));
}

void CQButton::Private::adoptExternalText()
{
    if (q->text() != shown)
        plain = q->text();
}

void CQButton::Private::showText()
{
    if (loading)
        return;
    shown = remaining > 0 ? QStringLiteral("%1 (%2s)").arg(plain).arg(remaining) : plain;
    q->setText(shown);
}

void CQButton::Private::slot_countTick()
{
    adoptExternalText();
    --remaining;
    emit q->sig_time_changed(qMax(0, remaining));
    if (remaining > 0) {
        showText();
        return;
    }
    remaining = 0;
    countTimer->stop();
    showText();
    // Last: a receiver may close and delete the window that holds us.
    emit q->sig_time_is_zero();
}

void CQButton::Private::slot_loadingTick()
{
    loadingAngle = (loadingAngle + loadingStep) % 360;
    QColor const color(QLatin1String(kLooks[kind].spinner));
    q->setIcon(QIcon(CQLoadingWin::spinnerPixmap(loadingSize, loadingAngle, color, q->devicePixelRatioF())));
}

CQButton::CQButton(QWidget* parent)
    : CQButton(QString(), KIND_PRIMARY, 14, 400, parent)
{
}

CQButton::CQButton(int kind, int fontSize, int fontWeight, QWidget* parent)
    : CQButton(QString(), kind, fontSize, fontWeight, parent)
{
}

CQButton::CQButton(QString const& text, int kind, int fontSize, int fontWeight, QWidget* parent)
    : QPushButton(text, parent)
    , d(new Private)
{
    d->q = this;
    d->plain = text;
    d->shown = text;
    d->InitVars();
    setParas(kind, fontSize, fontWeight);
}

CQButton::~CQButton()
{
    delete d;
    d = nullptr;
}

void CQButton::setParas(int kind, int fontSize, int fontWeight)
{
    if (kind < 0 || kind >= kKindCount) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[CQButton] kind [%d] not support, use 0", kind);
        kind = KIND_PRIMARY;
    }
    d->kind = kind;
    d->fontSize = qBound(6, fontSize, 72);
    d->fontWeight = qBound(100, fontWeight, 900);
    d->applyStyle();
}

void CQButton::setKind(int kind)
{
    setParas(kind, d->fontSize, d->fontWeight);
}

int CQButton::kind() const
{
    return d->kind;
}

void CQButton::setFontSize(int pixelSize)
{
    setParas(d->kind, pixelSize, d->fontWeight);
}

int CQButton::fontSize() const
{
    return d->fontSize;
}

void CQButton::setFontWeight(int weight)
{
    setParas(d->kind, d->fontSize, weight);
}

int CQButton::fontWeight() const
{
    return d->fontWeight;
}

void CQButton::setTime(int seconds, bool start)
{
    d->adoptExternalText();
    if (seconds <= 0) {
        stopTime();
        return;
    }
    d->remaining = seconds;
    d->showText();
    if (start)
        d->countTimer->start();
    else
        d->countTimer->stop();
}

void CQButton::startTime()
{
    if (d->remaining > 0)
        d->countTimer->start();
}

void CQButton::stopTime()
{
    d->adoptExternalText();
    d->countTimer->stop();
    d->remaining = 0;
    d->showText();
}

int CQButton::remainingTime() const
{
    return d->remaining;
}

bool CQButton::isCounting() const
{
    return d->countTimer->isActive();
}

QString CQButton::plainText() const
{
    d->adoptExternalText();
    return d->plain;
}

void CQButton::startLoadingStatus(int iconSize, QString const& text, int step)
{
    if (!d->loading) {
        d->adoptExternalText();
        d->savedIcon = icon();
        d->savedIconSize = QPushButton::iconSize();
    }
    d->loading = true;
    d->loadingSize = qBound(4, iconSize, 128);
    d->loadingStep = step == 0 ? 15 : step;
    setIconSize(QSize(d->loadingSize, d->loadingSize));
    d->shown = text;
    setText(text);
    d->slot_loadingTick();
    d->loadingTimer->start();
}

void CQButton::stopLoadingStatus()
{
    if (!d->loading)
        return;
    d->loading = false;
    d->loadingTimer->stop();
    setIcon(d->savedIcon);
    setIconSize(d->savedIconSize);
    d->showText();
}

bool CQButton::isLoading() const
{
    return d->loading;
}
