// Any bytes as the output of `tasklist`. Fields: the name to find, the output.

#include "controller/task_list.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

namespace {

// Decoding invalid UTF-8 must neither hide a name nor produce one.
bool Occurs(const std::string &output, const QString &name)
{
    return output.find(name.toStdString()) != std::string::npos;
}

void CheckName(const std::string &output, const QString &name)
{
    const auto shows = [&name](const std::string &bytes) {
        return ContainsImage(QByteArray::fromStdString(bytes), name);
    };
    Check(shows(output) == Occurs(output, name), "a name is found if and only if its bytes occur");
    Check(shows(output + name.toStdString()), "a name is found at the end");
    Check(shows(name.toStdString() + output), "a name is found at the beginning");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto fields = Fields<2>(data, size);
    const std::string output(fields[1]);
    CheckName(output, QStringLiteral("KTRUI.exe"));
    CheckName(output, QStringLiteral("uninstall.exe"));
    const QString name = Text(fields[0]);
    // Invalid bytes decode to the replacement character, and a leading byte order mark to nothing.
    const bool plain = !HasUnpairedSurrogates(name) &&
                       !name.contains(QChar::ReplacementCharacter) &&
                       !name.contains(QChar::ByteOrderMark);
    if (plain) {
        CheckName(output, name);
    }
    return 0;
}
