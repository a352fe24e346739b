#include "simulatedsettingsstore.h"

#include "clogdebug.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

char const* const kModule = "platform/bridge/simulatedsettingsstore";

// Our own file is a few hundred bytes; anything far bigger is not ours.
qint64 const kMaxFileSize = 256 * 1024;

// Values are one line each; a line break would smuggle in a key of its own.
QString flattened(QString value)
{
    for (QChar& c : value) {
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar(0))
            c = QLatin1Char(' ');
    }
    return value;
}

} // namespace

SimulatedSettingsStore::SimulatedSettingsStore(QString filePath)
    : m_path(std::move(filePath))
{
}

QString SimulatedSettingsStore::filePath() const
{
    return m_path;
}

bool SimulatedSettingsStore::isValidName(QString const& name)
{
    if (name.isEmpty() || name.size() > 64)
        return false;
    for (QChar const c : name) {
        bool const ok = (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
                        || (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('_')
                        || c == QLatin1Char('.') || c == QLatin1Char('-');
        if (!ok)
            return false;
    }
    return true;
}

bool SimulatedSettingsStore::load()
{
    m_sections.clear();
    QFile file(m_path);
    if (!file.exists())
        return true;
    if (file.size() > kMaxFileSize) {
        BFLOG(BFLOG_WARN, kModule, "[SimulatedSettingsStore] [%s] is %lld bytes, ignored", qUtf8Printable(m_path),
              static_cast<long long>(file.size()));
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        BFLOG(BFLOG_WARN, kModule, "[SimulatedSettingsStore] cannot read [%s]: %s", qUtf8Printable(m_path),
              qUtf8Printable(file.errorString()));
        return false;
    }
    QByteArray const data = file.read(kMaxFileSize);
    // With an explicit size: the QByteArray overload would stop at a stray NUL.
    QString const text = QString::fromUtf8(data.constData(), data.size());
    QString section;
    int lineNumber = 0;
    for (QString const& line : text.split(QLatin1Char('\n')))
        parseLine(line.trimmed(), section, ++lineNumber);
    return true;
}

void SimulatedSettingsStore::parseLine(QString const& line, QString& section, int lineNumber)
{
    if (line.isEmpty() || line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char(';')))
        return;
    if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
        QString const name = line.mid(1, line.size() - 2).trimmed();
        // An unusable section name puts its keys nowhere rather than into the previous section.
        section = isValidName(name) ? name : QString();
        if (section.isEmpty())
            BFLOG(BFLOG_WARN, kModule, "[SimulatedSettingsStore] bad section at line %d skipped", lineNumber);
        return;
    }
    int const eq = line.indexOf(QLatin1Char('='));
    QString const key = eq > 0 ? line.left(eq).trimmed() : QString();
    if (section.isEmpty() || !isValidName(key)) {
        BFLOG(BFLOG_WARN, kModule, "[SimulatedSettingsStore] unreadable line %d of [%s] skipped", lineNumber,
              qUtf8Printable(m_path));
        return;
    }
    // First occurrence wins, as in the other INI readers of the client.
    if (!m_sections.value(section).contains(key))
        m_sections[section].insert(key, line.mid(eq + 1).trimmed());
}

bool SimulatedSettingsStore::save() const
{
    QFileInfo const info(m_path);
    if (!QDir().mkpath(info.absolutePath())) {
        BFLOG(BFLOG_ERROR, kModule, "[SimulatedSettingsStore] cannot create [%s]", qUtf8Printable(info.absolutePath()));
        return false;
    }
    QByteArray data;
    for (auto section = m_sections.cbegin(); section != m_sections.cend(); ++section) {
        if (section.value().isEmpty())
            continue;
        data += '[' + section.key().toUtf8() + "]\n";
        for (auto item = section.value().cbegin(); item != section.value().cend(); ++item)
            data += item.key().toUtf8() + '=' + item.value().toUtf8() + '\n';
        data += '\n';
    }
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit()) {
        BFLOG(BFLOG_ERROR, kModule, "[SimulatedSettingsStore] cannot write [%s]: %s", qUtf8Printable(m_path),
              qUtf8Printable(file.errorString()));
        return false;
    }
    return true;
}

QString SimulatedSettingsStore::value(QString const& section, QString const& key, QString const& defaultValue) const
{
    auto const found = m_sections.constFind(section);
    if (found == m_sections.cend())
        return defaultValue;
    return found.value().value(key, defaultValue);
}

bool SimulatedSettingsStore::setValue(QString const& section, QString const& key, QString const& value)
{
    if (!isValidName(section) || !isValidName(key))
        return false;
    m_sections[section].insert(key, flattened(value).trimmed());
    return true;
}

void SimulatedSettingsStore::remove(QString const& section, QString const& key)
{
    auto found = m_sections.find(section);
    if (found != m_sections.end())
        found.value().remove(key);
}
