#include "cqmainwindow.h"

#include "clogdebug.h"
#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWindow>

namespace {

char const* const kModule = "platform/basegui/cqmainwindow";
QColor const kBorder(0xDF, 0xE1, 0xE6);

// Draws the window's border above the title and the body, which take the
// whole width; it lets every mouse event through to them.
class CQMainWindowBorder : public QWidget
{
public:
    explicit CQMainWindowBorder(QWidget* parent)
        : QWidget(parent)
    {
        setObjectName(QStringLiteral("m_pBorderWin"));
        setAttribute(Qt::WA_TransparentForMouseEvents, true);
        setAttribute(Qt::WA_NoSystemBackground, true);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(QPen(kBorder, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

} // namespace

CQMainWindow::CQMainWindow(QWidget* parent)
    : QWidget(parent)
{
    InitUI();
}

CQMainWindow::~CQMainWindow()
{
    // Children die after this destructor; their destroyed signals must not
    // reach a half-destroyed window.
    QObject::disconnect(m_mountConnection);
    for (QWidget* part : {m_title.data(), m_body.data()}) {
        if (part) {
            disconnect(part, nullptr, this, nullptr);
            part->removeEventFilter(this);
        }
    }
}

void CQMainWindow::InitUI()
{
    setWindowFlags(windowFlags() | Qt::Window | Qt::FramelessWindowHint);
    m_pBorderWin = new CQMainWindowBorder(this);
    m_pBorderWin->setGeometry(rect());
}

QWidget* CQMainWindow::titleWidget() const
{
    return m_title.data();
}

QWidget* CQMainWindow::bodyWidget() const
{
    return m_body.data();
}

QString CQMainWindow::bodyMountName() const
{
    return m_bodyMountName;
}

void CQMainWindow::adopt(QWidget* part)
{
    part->setParent(this);
    connect(part, &QObject::destroyed, this, &CQMainWindow::slot_partDestroyed, Qt::UniqueConnection);
    part->show();
}

void CQMainWindow::release(QWidget* part)
{
    if (!part)
        return;
    disconnect(part, &QObject::destroyed, this, &CQMainWindow::slot_partDestroyed);
    part->removeEventFilter(this);
    part->hide();
    part->setParent(nullptr);
}

void CQMainWindow::setTitleWidget(QWidget* title)
{
    if (title == this) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQMainWindow] a window cannot be its own title");
        return;
    }
    if (title != m_title) {
        m_dragging = false;
        QWidget* old = m_title.data();
        m_title = title;
        if (old != m_body)
            release(old);
        if (title) {
            if (title == m_body)
                m_body = nullptr;
            adopt(title);
            title->installEventFilter(this);
        }
    }
    relayout();
}

void CQMainWindow::setBodyWidget(QWidget* body)
{
    if (body == this) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQMainWindow] a window cannot be its own body");
        return;
    }
    if (body != m_body) {
        QWidget* old = m_body.data();
        m_body = body;
        if (old != m_title)
            release(old);
        if (body) {
            if (body == m_title) {
                body->removeEventFilter(this);
                m_title = nullptr;
            }
            adopt(body);
        }
    }
    relayout();
}

void CQMainWindow::setBodyMountName(QString const& name)
{
    m_bodyMountName = name;
    m_mountRetried = false;
    FrameLinkProxy* proxy = FrameLinkProxy::singleInstance();
    if (!m_mountConnection)
        m_mountConnection = connect(proxy, &FrameLinkProxy::sig_mounted, this, &CQMainWindow::slot_mounted);
    if (!name.isEmpty() && proxy->find(name))
        slot_mounted(name);
}

void CQMainWindow::slot_mounted(QString const& name)
{
    if (name.isEmpty() || name != m_bodyMountName)
        return;
    FrameLinkProxyInterface* iface = FrameLinkProxy::singleInstance()->find(name);
    QWidget* frame = iface ? iface->frameWidget() : nullptr;
    if (!frame) {
        // The interface may announce itself before it has stored its widget;
        // look once more when the current event is done.
        if (!m_mountRetried) {
            m_mountRetried = true;
            QMetaObject::invokeMethod(this, [this, name]() { slot_mounted(name); }, Qt::QueuedConnection);
            return;
        }
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQMainWindow] mounted [%s] has no frame widget", qUtf8Printable(name));
        return;
    }
    m_mountRetried = false;
    BFLogPrintX(BFLOG_INFO, kModule, __FUNCTION__, __LINE__, "[CQMainWindow] body taken from [%s]", qUtf8Printable(name));
    setBodyWidget(frame);
}

void CQMainWindow::slot_partDestroyed(QObject* part)
{
    // QPointer may or may not be cleared yet while destroyed is emitted.
    if (m_title.isNull() || m_title.data() == part) {
        m_title = nullptr;
        m_dragging = false;
    }
    if (m_body.isNull() || m_body.data() == part)
        m_body = nullptr;
    relayout();
}

void CQMainWindow::relayout()
{
    if (m_inRelayout)
        return;
    m_inRelayout = true;
    int top = 0;
    if (m_title) {
        // A fixed height wins, then the title's own wish, then its current height.
        int h = m_title->height();
        if (m_title->minimumHeight() == m_title->maximumHeight())
            h = m_title->minimumHeight();
        else if (m_title->sizeHint().isValid())
            h = m_title->sizeHint().height();
        h = qBound(0, h, height());
        m_title->setGeometry(0, 0, width(), h);
        top = m_title->height();
    }
    if (m_body)
        m_body->setGeometry(0, top, width(), qMax(0, height() - top));
    m_pBorderWin->setGeometry(rect());
    m_pBorderWin->raise();
    m_inRelayout = false;
}

void CQMainWindow::raiseBorder()
{
    m_borderRaisePending = false;
    m_pBorderWin->raise();
}

bool CQMainWindow::event(QEvent* event)
{
    // Children added later (by subclasses or plugins) would hide the border.
    if (event->type() == QEvent::ChildAdded && m_pBorderWin && !m_borderRaisePending) {
        m_borderRaisePending = true;
        QMetaObject::invokeMethod(this, &CQMainWindow::raiseBorder, Qt::QueuedConnection);
    }
    return QWidget::event(event);
}

bool CQMainWindow::handleTitleMouse(QEvent* event)
{
    auto* mouse = static_cast<QMouseEvent*>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse->button() != Qt::LeftButton)
            return false;
        // Wayland moves windows only itself; X11 window managers do it better too.
        if (windowHandle() && windowHandle()->startSystemMove())
            return false;
        m_dragging = true;
        m_dragOffset = mouse->globalPos() - frameGeometry().topLeft();
        return false;
    case QEvent::MouseMove:
        if (m_dragging && (mouse->buttons() & Qt::LeftButton))
            move(mouse->globalPos() - m_dragOffset);
        return false;
    case QEvent::MouseButtonRelease:
        if (mouse->button() == Qt::LeftButton)
            m_dragging = false;
        return false;
    default:
        return false;
    }
}

bool CQMainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_title.data()) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            handleTitleMouse(event);
            break;
        case QEvent::Resize:
            relayout();
            break;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CQMainWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    relayout();
}

void CQMainWindow::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    // Lets a style sheet on the window paint its background over the white.
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

void CQMainWindow::activateShow()
{
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void CQMainWindow::setVisible(bool visible)
{
    if (!isWindow() || m_inVisibilityHook || visible == isVisible()) {
        QWidget::setVisible(visible);
        return;
    }
    QPointer<CQMainWindow> self(this);
    m_inVisibilityHook = true;
    if (visible) {
        m_hideApproved = false;
        preShowEvent();
        if (!self)
            return;
        QWidget::setVisible(true);
        postShowEvent();
    } else {
        bool const approved = m_hideApproved;
        m_hideApproved = false;
        if (!approved && !preHideEvent()) {
            if (self)
                m_inVisibilityHook = false;
            return;
        }
        if (!self)
            return;
        QWidget::setVisible(false);
        postHideEvent();
    }
    if (self)
        m_inVisibilityHook = false;
}

void CQMainWindow::closeEvent(QCloseEvent* event)
{
    if (isWindow() && isVisible() && !m_inVisibilityHook) {
        QPointer<CQMainWindow> self(this);
        bool const allowed = preHideEvent();
        if (!self)
            return;
        if (!allowed) {
            event->ignore();
            return;
        }
        // The hide that follows an accepted close needs no second question.
        m_hideApproved = true;
    }
    QWidget::closeEvent(event);
}

bool CQMainWindow::preShowEvent()
{
    return true;
}

void CQMainWindow::postShowEvent()
{
}

bool CQMainWindow::preHideEvent()
{
    return true;
}

void CQMainWindow::postHideEvent()
{
}
