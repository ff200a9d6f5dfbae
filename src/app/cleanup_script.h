#pragma once

#include <QString>

/// The clean-up script as delivered and as it is run: from a copy in the temp directory, since it
/// removes the folder of the original.
struct CleanupScript
{
    QString source; ///< beside the program; never run from there
    QString staged; ///< in the temp directory
};

/// Source and staged path of the script, for the program in `programDir` (forward slashes).
CleanupScript LocateCleanupScript(const QString &programDir);

/// Copies the script to its staged path. Replaces an older copy; without a source, removes it.
void StageCleanupScript(const CleanupScript &script);

/// The command line that removes what is left of the product: the staged script, unquoted, and the
/// parent of `programDir` in double quotes, both with native separators.
QString CleanupCommand(const CleanupScript &script, const QString &programDir);
