#include "app/cleanup_script.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

CleanupScript LocateCleanupScript(const QString &programDir)
{
    const QString pattern = QStringLiteral("%1/%2");
    const QString name = QStringLiteral("clearKTR.bat");
    // One arg() call: chained calls would substitute a %1 inside the path.
    return {pattern.arg(programDir, name), pattern.arg(QDir::tempPath(), name)};
}

void StageCleanupScript(const CleanupScript &script)
{
    // A dangling link counts too: QFile::exists() is false for it, and QFile::copy() would fail or
    // write to its target. An old copy may be a link, so it is removed, never written to.
    if (QFile::exists(script.staged) || QFileInfo(script.staged).isSymLink()) {
        QFile::remove(script.staged);
    }
    QFile::copy(script.source, script.staged);
}

QString CleanupCommand(const CleanupScript &script, const QString &programDir)
{
    const QString parent = QDir::cleanPath(programDir + QStringLiteral("/../"));
    return QStringLiteral("%1 \"%2\"")
        .arg(QDir::toNativeSeparators(script.staged), QDir::toNativeSeparators(parent));
}
