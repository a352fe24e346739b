#include "hostCommandLine.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

QString const kDescription = QStringLiteral(
    "The Quorix endpoint-security client: the main window, the tray icon and the pop-ups of the\n"
    "security backend. A second start hands over to the client that is already running.");

// Options QGuiApplication takes out of argv itself (-platform, -display, ...).
// They are read here only so that they do not count as unknown.
char const* const kQtValueOptions[] = {"platform", "platformpluginpath", "platformtheme", "plugin", "display",
                                        "qwindowgeometry", "qwindowicon", "qwindowtitle", "geometry", "title",
                                        "session", "name", "style", "stylesheet"};
char const* const kQtFlagOptions[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

} // namespace

HostCommandLine::HostCommandLine()
    : m_silent(QStringLiteral("silent"), QStringLiteral("Start in the tray; the main window stays hidden."))
    , m_root(QStringLiteral("root"),
             QStringLiteral("Install root holding lib/plugins-gui/ (default: $QUORIX_ROOT, else the folder above bin/)."),
             QStringLiteral("DIR"))
    , m_pluginDir(QStringLiteral("plugin-dir"),
                  QStringLiteral("Also load the plugins in DIR, after those of <root>/lib/plugins-gui. Repeatable; "
                                 "the folders of $QUORIX_PLUGIN_DIRS (colon-separated) follow."),
                  QStringLiteral("DIR"))
    , m_screenshot(QStringLiteral("screenshot"),
                   QStringLiteral("Render the windows into PNG files in DIR, then quit."), QStringLiteral("DIR"))
    , m_quitAfterShow(QStringLiteral("quit-after-show"),
                      QStringLiteral("Quit as soon as the main window has been painted (start-up timing)."))
    , m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help and exit."))
    , m_version({QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version and exit."))
{
    InitOptions();
}

void HostCommandLine::InitOptions()
{
    m_parser.setApplicationDescription(kDescription);
    // Qt's own options are single-dash words; compacted short options would
    // read "-platform" as "-p -l -a ...".
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parser.addOption(m_help);
    m_parser.addOption(m_version);
    m_parser.addOption(m_silent);
    m_parser.addOption(m_root);
    m_parser.addOption(m_pluginDir);
    m_parser.addOption(m_screenshot);
    m_parser.addOption(m_quitAfterShow);
    addQtOptions();
}

void HostCommandLine::addQtOptions()
{
    for (char const* name : kQtValueOptions) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        m_parser.addOption(option);
    }
    for (char const* name : kQtFlagOptions) {
        QCommandLineOption option(QString::fromLatin1(name));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        m_parser.addOption(option);
    }
}

HostCommandLine::eAction HostCommandLine::parse(QStringList const& arguments)
{
    m_error.clear();
    if (!m_parser.parse(arguments)) {
        m_error = m_parser.errorText();
        m_action = ACTION_ERROR;
        return m_action;
    }
    m_action = check();
    return m_action;
}

HostCommandLine::eAction HostCommandLine::check()
{
    if (m_parser.isSet(m_help))
        return ACTION_HELP;
    if (m_parser.isSet(m_version))
        return ACTION_VERSION;
    if (!m_parser.positionalArguments().isEmpty()) {
        m_error = QStringLiteral("Unexpected argument '%1'.").arg(m_parser.positionalArguments().constFirst());
        return ACTION_ERROR;
    }
    for (QCommandLineOption const* option : {&m_root, &m_pluginDir, &m_screenshot}) {
        if (m_parser.values(*option).contains(QString())) {
            m_error = QStringLiteral("Empty value for option '%1'.").arg(option->names().constFirst());
            return ACTION_ERROR;
        }
    }
    return ACTION_RUN;
}

HostCommandLine::eAction HostCommandLine::action() const
{
    return m_action;
}

QuorixGuiHost::Options HostCommandLine::options() const
{
    QuorixGuiHost::Options options;
    options.silent = m_parser.isSet(m_silent);
    options.quitAfterShow = m_parser.isSet(m_quitAfterShow);
    options.root = m_parser.value(m_root);
    options.screenshotDir = m_parser.value(m_screenshot);
    options.pluginDirs = m_parser.values(m_pluginDir);
    return options;
}

QString HostCommandLine::message() const
{
    switch (m_action) {
    case ACTION_HELP:
        return m_parser.helpText();
    case ACTION_VERSION:
        return QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion());
    case ACTION_ERROR:
        return QStringLiteral("%1: %2\n\n%3").arg(QCoreApplication::applicationName(), m_error, m_parser.helpText());
    case ACTION_RUN:
        break;
    }
    return QString();
}

bool HostCommandLine::messageIsError() const
{
    return m_action == ACTION_ERROR;
}

int HostCommandLine::exitCode() const
{
    return m_action == ACTION_ERROR ? kExitUsage : 0;
}

int HostCommandLine::report() const
{
    QByteArray const text = message().toLocal8Bit();
    std::FILE* out = messageIsError() ? stderr : stdout;
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), out);
    std::fflush(out);
    return exitCode();
}
