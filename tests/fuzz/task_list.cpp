// Any bytes as the task list's output. Fields: the name that is looked for, the output.

#include "controller/task_list.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

namespace {

// Decoding broken UTF-8 must neither swallow a name nor make one up.
bool Occurs(const std::string &output, const QString &name)
{
    return output.find(name.toStdString()) != std::string::npos;
}

void CheckName(const std::string &output, const QString &name)
{
    const auto shows = [&name](const std::string &bytes) {
        return ContainsImage(QByteArray::fromStdString(bytes), name);
    };
    Check(shows(output) == Occurs(output, name),
          "a name is shown exactly when its bytes are there");
    Check(shows(output + name.toStdString()), "it is found at the end");
    Check(shows(name.toStdString() + output), "it is found at the beginning");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto fields = Fields<2>(data, size);
    const std::string output(fields[1]);
    CheckName(output, QStringLiteral("KTRUI.exe"));
    CheckName(output, QStringLiteral("uninstall.exe"));
    const QString name = Text(fields[0]);
    // A broken text decodes to the replacement character, and a mark at the beginning to nothing.
    const bool plain = !HasSingleSurrogates(name) && !name.contains(QChar::ReplacementCharacter) &&
                       !name.contains(QChar::ByteOrderMark);
    if (plain) {
        CheckName(output, name);
    }
    return 0;
}
