#include "ukuiPanelSettings.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSaveFile>

namespace {

int const kCompileTimeoutMs = 30000;

// panelposition is unsigned here, so that gsettings prints it with its type
// word ("uint32 2") as some UKUI releases do; panelsize is a plain int.
QByteArray const kSchema = R"(<?xml version="1.0" encoding="UTF-8"?>
<schemalist>
  <schema id="org.ukui.panel.settings" path="/org/ukui/panel/settings/">
    <key name="panelposition" type="u"><default>0</default></key>
    <key name="panelsize" type="i"><default>46</default></key>
  </schema>
</schemalist>
)";

} // namespace

UkuiPanelSettings::UkuiPanelSettings() = default;

bool UkuiPanelSettings::compile()
{
    QString const schemas = m_dir.filePath(QStringLiteral("schemas"));
    QDir().mkpath(schemas);
    QFile source(schemas + QStringLiteral("/org.ukui.panel.settings.gschema.xml"));
    if (!source.open(QIODevice::WriteOnly) || source.write(kSchema) != kSchema.size())
        return false;
    source.close();
    QProcess compiler;
    compiler.setProcessChannelMode(QProcess::ForwardedChannels);
    compiler.start(QStringLiteral("glib-compile-schemas"), {schemas});
    return compiler.waitForFinished(kCompileTimeoutMs) && compiler.exitCode() == 0 &&
           QFile::exists(schemas + QStringLiteral("/gschemas.compiled"));
}

bool UkuiPanelSettings::set(uint position, int size)
{
    QString const folder = m_dir.filePath(QStringLiteral("config/glib-2.0/settings"));
    QDir().mkpath(folder);
    QSaveFile keyfile(folder + QStringLiteral("/keyfile"));
    if (!keyfile.open(QIODevice::WriteOnly))
        return false;
    keyfile.write(QStringLiteral("[org/ukui/panel/settings]\npanelposition=uint32 %1\npanelsize=%2\n")
                      .arg(position)
                      .arg(size)
                      .toUtf8());
    return keyfile.commit();
}

QProcessEnvironment UkuiPanelSettings::environment(QProcessEnvironment base) const
{
    base.insert(QStringLiteral("GSETTINGS_SCHEMA_DIR"), m_dir.filePath(QStringLiteral("schemas")));
    base.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("keyfile"));
    // The keyfile backend keeps its file under the configuration folder.
    base.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir.filePath(QStringLiteral("config")));
    return base;
}
