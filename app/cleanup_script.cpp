#include "app/cleanup_script.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

CleanupScript LocateCleanupScript(const QString &programDir)
{
    const QString pattern = QStringLiteral("%1/%2");
    const QString name = QStringLiteral("clearKTR.bat");
    // Both texts in one call: a second call would also fill a marker within a directory's name.
    return {pattern.arg(programDir, name), pattern.arg(QDir::tempPath(), name)};
}

void StageCleanupScript(const CleanupScript &script)
{
    // A link that leads nowhere is called absent, but it would stay in the way.
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
