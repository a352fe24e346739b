#include "clientIconEngine.h"

#include "clogdebug.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <iterator>

namespace {

char const* const kModule = "host/clientIconEngine";

int area(QSize const& size)
{
    return size.width() * size.height();
}

} // namespace

ClientIconEngine::ClientIconEngine(QMap<int, QString> files)
    : m_files(std::move(files))
{
    // As QIcon::addFile: a file that is not there is no picture at all, one
    // that is there counts with its size until it fails to decode.
    for (auto it = m_files.begin(); it != m_files.end();)
        it = QFile::exists(it.value()) ? std::next(it) : m_files.erase(it);
}

int ClientIconEngine::bestSide(QSize const& size) const
{
    // Sides ascend, so the first one that covers the area is the smallest.
    int const wanted = area(size);
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        if (it.key() * it.key() >= wanted)
            return it.key();
    }
    return m_files.isEmpty() ? 0 : m_files.lastKey();
}

QPixmap ClientIconEngine::picture(int side)
{
    auto const cached = m_pictures.constFind(side);
    if (cached != m_pictures.constEnd())
        return cached.value();
    QPixmap const decoded(m_files.value(side));
    if (decoded.isNull()) {
        BFLOG(BFLOG_WARN, kModule, "[ClientIconEngine] icon picture [%s] does not load, left out",
              qUtf8Printable(m_files.value(side)));
        m_files.remove(side);
        return decoded;
    }
    m_pictures.insert(side, decoded);
    return decoded;
}

QSize ClientIconEngine::fitted(QSize const& side, QSize const& bound)
{
    QSize size = side;
    if (size.width() > bound.width() || size.height() > bound.height())
        size.scale(bound, Qt::KeepAspectRatio);
    return size;
}

// What QIcon does for a mode it has no picture of: the application's style
// draws it from the normal one.
QPixmap ClientIconEngine::styled(QPixmap const& normal, QIcon::Mode mode)
{
    auto* app = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (mode == QIcon::Normal || !app)
        return normal;
    QStyleOption option(0);
    option.palette = QGuiApplication::palette();
    QPixmap const generated = QApplication::style()->generatedIconPixmap(mode, normal, &option);
    return generated.isNull() ? normal : generated;
}

QPixmap ClientIconEngine::pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(state);   // one picture serves both states, as in QIcon
    QPixmap pm;
    while (pm.isNull() && !m_files.isEmpty())
        pm = picture(bestSide(size));
    if (pm.isNull())
        return pm;
    QSize const target = fitted(pm.size(), size);
    if (pm.size() != target)
        pm = pm.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return styled(pm, mode);
}

void ClientIconEngine::paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State state)
{
    qreal const ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
}

QSize ClientIconEngine::actualSize(QSize const& size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(mode);
    Q_UNUSED(state);
    int const side = bestSide(size);
    return side > 0 ? fitted(QSize(side, side), size) : QSize();
}

QList<QSize> ClientIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state) const
{
    QList<QSize> sizes;
    // Only the pictures themselves; the other looks are generated from them.
    if (mode != QIcon::Normal || state != QIcon::Off)
        return sizes;
    for (int const side : m_files.keys())
        sizes.append(QSize(side, side));
    return sizes;
}

QIconEngine* ClientIconEngine::clone() const
{
    return new ClientIconEngine(*this);
}

QString ClientIconEngine::key() const
{
    return QStringLiteral("ClientIconEngine");
}

void ClientIconEngine::virtual_hook(int id, void* data)
{
    if (id == QIconEngine::IsNullHook) {
        *static_cast<bool*>(data) = m_files.isEmpty();
        return;
    }
    QIconEngine::virtual_hook(id, data);
}
