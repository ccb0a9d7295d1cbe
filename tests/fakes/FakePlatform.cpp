#include "fakes/FakePlatform.h"

#include "platform/RuntimeError.h"

#include <QDialog>

namespace fakes
{

long FakeStore::RegOpenKeyA(std::uint32_t hive, const QString& path, Handle& key)
{
    if (!keys_.count(path.toLower())) {
        key = 0;
        return NotFound;
    }
    return RegCreateKeyA(hive, path, key);
}

long FakeStore::RegCreateKeyA(std::uint32_t, const QString& path, Handle& key)
{
    keys_[path.toLower()];
    key = next_++;
    open_[key] = path.toLower();
    return Success;
}

long FakeStore::RegQueryValueExA(Handle key, const QString& name, std::uint32_t& type,
                                 QByteArray* data, std::uint32_t& length)
{
    const auto it = open_.find(key);
    if (it == open_.end())
        return NotFound;
    const auto& values = keys_[it->second];
    const auto v = values.find(name.toLower());
    if (v == values.end())
        return NotFound;
    type = v->second.type;
    length = std::uint32_t(v->second.data.size());
    if (data)
        *data = v->second.data;
    return Success;
}

long FakeStore::RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                               const QByteArray& data)
{
    const auto it = open_.find(key);
    if (it == open_.end())
        return NotFound;
    writes << name;
    keys_[it->second][name.toLower()] = {type, data};
    return Success;
}

long FakeStore::RegCloseKey(Handle key)
{
    open_.erase(key);
    return Success;
}

static const QString programKey = QStringLiteral("software\\kestrane\\quorl");

std::optional<QString> FakeStore::value(const QString& name) const
{
    const auto it = keys_.find(programKey);
    if (it == keys_.end())
        return std::nullopt;
    const auto v = it->second.find(name.toLower());
    if (v == it->second.end())
        return std::nullopt;
    return QString::fromUtf8(v->second.data);
}

void FakeStore::setValue(const QString& name, const QString& text)
{
    setRaw(name, String, text.toUtf8());
}

void FakeStore::setRaw(const QString& name, std::uint32_t type, const QByteArray& data)
{
    keys_[programKey][name.toLower()] = {type, data};
}

int FakeStore::valueCount() const
{
    const auto it = keys_.find(programKey);
    return it == keys_.end() ? 0 : int(it->second.size());
}

platform::BoxAnswer FakeDialogs::MsgBox(platform::BoxIcon icon, platform::BoxButtons buttons,
                                        const QString& title, const QString& text)
{
    boxes.push_back({icon, buttons, title, text});
    if (onBox)
        onBox(boxes.back());
    if (answers.empty())
        return platform::BoxAnswer::OK;
    const platform::BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

QStringList FakeDialogs::titles() const
{
    QStringList found;
    for (const Box& box : boxes)
        found << box.title;
    return found;
}

QStringList FakeDialogs::texts(const QString& title) const
{
    QStringList found;
    for (const Box& box : boxes)
        if (box.title == title)
            found << box.text;
    return found;
}

QString FakeDialogs::OpenFile(const platform::OpenFileRequest& request)
{
    fileRequests.push_back(request);
    if (files.empty())
        return {};
    const QString file = files.front();
    files.pop_front();
    return file;
}

void FakeShell::StartCommandLine(const QString& commandLine)
{
    const auto it = failing.find(commandLine);
    if (it != failing.end())
        throw platform::RuntimeError(platform::errors::FileNotFound, QStringLiteral("Quorl"),
                                     it->second);
    started << commandLine;
}

FakePlatform::FakePlatform()
    : platform{store,
               dialogs,
               clock,
               screen,
               clipboard,
               shell,
               power,
               instance,
               process,
               endRequests,
               tray,
               [this]() -> std::unique_ptr<platform::Agent> {
                   if (agentMissing)
                       throw platform::RuntimeError(platform::errors::AgentNotInstalled,
                                                    QStringLiteral("Quorl"),
                                                    QStringLiteral("Can't create object"));
                   auto created = std::make_unique<FakeAgent>();
                   agent = created.get();
                   return created;
               },
               [this](QDialog& dialog) {
                   modalWindows << QString::fromLatin1(dialog.metaObject()->className());
                   if (onModal)
                       onModal(dialog);
               },
               QString()}
{
}

} // namespace fakes
