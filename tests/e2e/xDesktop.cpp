#include "xDesktop.h"

#include <QRegularExpression>
#include <QEventLoop>
#include <QTimer>
#include <QStandardPaths>
#include <QtTest>

namespace {

int const kServerTimeoutMs = 10000;
int const kClientTimeoutMs = 10000;
int const kTrayTimeoutMs = 10000;

// One window of `xwininfo -root -tree`:
//      0x400014 "quorix-gui": ("quorix-gui" "quorix-gui")  270x188+998+16  +998+16
QRegularExpression const kTreeLine(QString::fromLatin1(
    R"re(^( *)(0x[0-9a-f]+) (?:"(.*)"|\(has no name\)): \((?:"([^"]*)" "([^"]*)")?\))re"
    R"re(\s+(\d+)x(\d+)\S*\s+\+(-?\d+)\+(-?\d+)\s*$)re"));

} // namespace

QStringList XDesktop::missingPrograms(QStringList const& programs)
{
    QStringList missing;
    for (QString const& program : programs) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            missing << program;
    }
    return missing;
}

XDesktop::XDesktop(QSize const& screen)
    : m_screen(screen)
    , m_server(new ChildProcess)
{
    // -displayfd: the server takes the first free display number and writes
    // it to our pipe once it accepts clients, so parallel tests never collide.
    m_server->start(QStringLiteral("Xvfb"),
                    {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                     QStringLiteral("%1x%2x24").arg(screen.width()).arg(screen.height()), QStringLiteral("-nolisten"),
                     QStringLiteral("tcp"), QStringLiteral("-noreset")});
    if (!m_server->waitForStarted(kServerTimeoutMs))
        return;
    while (!m_server->canReadLine() && m_server->waitForReadyRead(kServerTimeoutMs)) {
    }
    QByteArray const number = m_server->readLine().trimmed();
    if (!number.isEmpty())
        m_display = QStringLiteral(":") + QString::fromLatin1(number);
}

XDesktop::~XDesktop()
{
    stop(m_tray);
    stop(m_server);
}

void XDesktop::stop(QScopedPointer<ChildProcess>& process)
{
    if (process && process->state() != QProcess::NotRunning) {
        process->kill();
        process->waitForFinished(kServerTimeoutMs);
    }
    process.reset();
}

bool XDesktop::isUp() const
{
    return !m_display.isEmpty() && m_server->state() == QProcess::Running;
}

QString XDesktop::display() const
{
    return m_display;
}

QSize XDesktop::screenSize() const
{
    return m_screen;
}

bool XDesktop::startTray(QString const& edge, QString const& align)
{
    stop(m_tray);
    m_tray.reset(new ChildProcess);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), m_display);
    m_tray->setProcessEnvironment(env);
    m_tray->start(QStringLiteral("trayer"),
                  {QStringLiteral("--edge"), edge, QStringLiteral("--align"), align, QStringLiteral("--widthtype"),
                   QStringLiteral("request"), QStringLiteral("--height"), QStringLiteral("32")});
    if (!m_tray->waitForStarted(kTrayTimeoutMs))
        return false;
    // The tray is there once its panel is mapped: clients dock from then on.
    return QTest::qWaitFor(
        [this]() {
            for (XWindow const& w : windows(QStringLiteral("trayer"))) {
                if (w.name == QLatin1String("panel") && viewable(QStringLiteral("trayer")).contains(w.id))
                    return true;
            }
            return false;
        },
        kTrayTimeoutMs);
}

QList<XWindow> XDesktop::windows(QString const& className) const
{
    QList<XWindow> found;
    int topIndent = -1;
    bool underTray = false;
    QStringList const lines =
        QString::fromUtf8(run(QStringLiteral("xwininfo"), {QStringLiteral("-root"), QStringLiteral("-tree")}))
            .split(QLatin1Char('\n'));
    for (QString const& line : lines) {
        QRegularExpressionMatch const m = kTreeLine.match(line);
        if (!m.hasMatch())
            continue;
        int const indent = m.capturedLength(1);
        if (topIndent < 0)
            topIndent = indent;
        XWindow w;
        w.id = m.captured(2).toUInt(nullptr, 16);
        w.name = m.captured(3);
        w.className = m.captured(5);
        w.geometry = QRect(m.captured(8).toInt(), m.captured(9).toInt(), m.captured(6).toInt(), m.captured(7).toInt());
        w.topLevel = indent == topIndent;
        if (w.topLevel)
            underTray = w.className == QLatin1String("trayer") && w.name == QLatin1String("panel");
        w.inTray = !w.topLevel && underTray;
        if (w.className == className)
            found << w;
    }
    return found;
}

QList<quint32> XDesktop::viewable(QString const& className) const
{
    QList<quint32> ids;
    QList<QByteArray> const lines =
        run(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                        QStringLiteral("--class"), QStringLiteral("^%1$").arg(className)})
            .split('\n');
    for (QByteArray const& line : lines) {
        if (!line.trimmed().isEmpty())
            ids << line.trimmed().toUInt();
    }
    return ids;
}

void XDesktop::moveTo(QPoint const& point) const
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())});
}

void XDesktop::click(int button) const
{
    run(QStringLiteral("xdotool"), {QStringLiteral("click"), QString::number(button)});
}

void XDesktop::clickWindow(quint32 window, int button) const
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("click"), QStringLiteral("--window"), QString::number(window), QString::number(button)});
}

void XDesktop::setBackground(QString const& imagePath) const
{
    run(QStringLiteral("display"), {QStringLiteral("-window"), QStringLiteral("root"), imagePath});
}

bool XDesktop::screenshot(QString const& path, QRect const& area) const
{
    QFile::remove(path);
    QString const crop =
        QStringLiteral("%1x%2+%3+%4").arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y());
    run(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"), QStringLiteral("-crop"), crop,
                                   QStringLiteral("+repage"), path});
    return QFile::exists(path);
}

QByteArray XDesktop::run(QString const& program, QStringList const& arguments) const
{
    ChildProcess client;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), m_display);
    client.setProcessEnvironment(env);
    client.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QEventLoop loop;
    QObject::connect(&client, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop, &QEventLoop::quit);
    QObject::connect(&client, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(kClientTimeoutMs, &loop, &QEventLoop::quit);
    client.start(program, arguments);
    loop.exec();
    if (client.state() != QProcess::NotRunning) {
        client.kill();
        client.waitForFinished(kClientTimeoutMs);
    }
    return client.readAllStandardOutput();
}
