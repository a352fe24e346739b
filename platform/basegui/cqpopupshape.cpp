#include "cqpopupshape.h"

#include "clogdebug.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainterPath>
#include <QPolygon>
#include <QRegion>
#include <QWidget>

#include <cstdlib>
#include <dlfcn.h>

#if __has_include(<xcb/xcb.h>)
#include <xcb/xcb.h>
#define CQPOPUPSHAPE_HAVE_XCB 1
#endif

namespace {

char const* const kModule = "platform/basegui/cqpopupshape";

int g_override = CQPopupShape::COMPOSITING_ASK;

#ifdef CQPOPUPSHAPE_HAVE_XCB
// Asks the X server whether a compositing manager owns the screen's
// _NET_WM_CM_S<n> selection, over a connection of its own. libxcb is reached
// through dlsym rather than linked: Qt's xcb platform plugin has it loaded
// whenever the answer matters, and the kit still runs where there is none.
class XcbCompositingProbe
{
public:
    static XcbCompositingProbe& instance()
    {
        static XcbCompositingProbe probe;
        return probe;
    }

    // false when the server cannot be asked: a mask is safe either way.
    bool ownerExists()
    {
        if (!m_connection || m_hasError(m_connection))
            return false;
        xcb_get_selection_owner_reply_t* reply =
            m_ownerReply(m_connection, m_getOwner(m_connection, m_atom), nullptr);
        bool const owned = reply && reply->owner != XCB_NONE;
        std::free(reply);
        return owned;
    }

private:
    using ConnectFn = xcb_connection_t* (*)(char const*, int*);
    using HasErrorFn = int (*)(xcb_connection_t*);
    using DisconnectFn = void (*)(xcb_connection_t*);
    using InternAtomFn = xcb_intern_atom_cookie_t (*)(xcb_connection_t*, uint8_t, uint16_t, char const*);
    using InternAtomReplyFn = xcb_intern_atom_reply_t* (*)(xcb_connection_t*, xcb_intern_atom_cookie_t, xcb_generic_error_t**);
    using GetOwnerFn = xcb_get_selection_owner_cookie_t (*)(xcb_connection_t*, xcb_atom_t);
    using OwnerReplyFn =
        xcb_get_selection_owner_reply_t* (*)(xcb_connection_t*, xcb_get_selection_owner_cookie_t, xcb_generic_error_t**);

    template <typename Fn>
    static bool resolve(void* library, char const* name, Fn& fn)
    {
        fn = reinterpret_cast<Fn>(::dlsym(library, name));
        return fn != nullptr;
    }

    XcbCompositingProbe()
    {
        void* library = ::dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
        ConnectFn connect = nullptr;
        InternAtomFn internAtom = nullptr;
        InternAtomReplyFn internAtomReply = nullptr;
        if (!library || !resolve(library, "xcb_connect", connect) || !resolve(library, "xcb_connection_has_error", m_hasError)
            || !resolve(library, "xcb_disconnect", m_disconnect) || !resolve(library, "xcb_intern_atom", internAtom)
            || !resolve(library, "xcb_intern_atom_reply", internAtomReply)
            || !resolve(library, "xcb_get_selection_owner", m_getOwner)
            || !resolve(library, "xcb_get_selection_owner_reply", m_ownerReply)) {
            BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQPopupShape] libxcb not usable, pop-ups take a mask");
            return;
        }
        int screen = 0;
        m_connection = connect(nullptr, &screen);
        if (m_hasError(m_connection)) {
            BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQPopupShape] cannot reach the X server, pop-ups take a mask");
            return;
        }
        QByteArray const name = "_NET_WM_CM_S" + QByteArray::number(screen);
        xcb_intern_atom_reply_t* reply = internAtomReply(
            m_connection, internAtom(m_connection, 0, static_cast<uint16_t>(name.size()), name.constData()), nullptr);
        m_atom = reply ? reply->atom : XCB_NONE;
        std::free(reply);
    }

    ~XcbCompositingProbe()
    {
        if (m_connection)
            m_disconnect(m_connection);
    }

    xcb_connection_t* m_connection = nullptr;
    xcb_atom_t m_atom = XCB_NONE;
    HasErrorFn m_hasError = nullptr;
    DisconnectFn m_disconnect = nullptr;
    GetOwnerFn m_getOwner = nullptr;
    OwnerReplyFn m_ownerReply = nullptr;
};
#endif

bool x11Compositing()
{
#ifdef CQPOPUPSHAPE_HAVE_XCB
    return XcbCompositingProbe::instance().ownerExists();
#else
    return false;
#endif
}

QRegion roundedRegion(QSize const& size, int radius)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(0, 0), QSizeF(size)), radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

CQPopupShape* CQPopupShape::install(QWidget* popup, int radius)
{
    if (!popup) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQPopupShape] popup is null");
        return nullptr;
    }
    return new CQPopupShape(popup, radius);
}

CQPopupShape::CQPopupShape(QWidget* popup, int radius)
    : QObject(popup)
    , m_pPopup(popup)
    , m_radius(radius < 0 ? 0 : radius)
{
    popup->installEventFilter(this);
}

bool CQPopupShape::isCompositing()
{
    if (g_override != COMPOSITING_ASK)
        return g_override == COMPOSITING_ON;
    QString const platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb"))
        return x11Compositing();
    return true;
}

void CQPopupShape::setCompositingOverride(eCompositing value)
{
    g_override = value;
}

int CQPopupShape::radius() const
{
    return m_radius;
}

bool CQPopupShape::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pPopup)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Polish:
        // Polished once, before the native window is created: the last
        // moment the translucency can still be chosen.
        m_compositing = isCompositing();
        m_pPopup->setAttribute(Qt::WA_TranslucentBackground, m_compositing);
        break;
    case QEvent::Show:
        m_compositing = isCompositing();
        updateMask();
        break;
    case QEvent::Resize:
        updateMask();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void CQPopupShape::updateMask()
{
    if (m_compositing && m_pPopup->testAttribute(Qt::WA_TranslucentBackground)) {
        m_pPopup->clearMask();
        return;
    }
    m_pPopup->setMask(roundedRegion(m_pPopup->size(), m_radius));
}
