#include "fakes/FakePlatform.h"

#include "platform/RuntimeError.h"

#include <QDialog>

namespace fakes
{

FakeStore::Value* FakeStore::find(Key& key, const QString& name)
{
    for (Value& v : key)
        if (v.name.compare(name, Qt::CaseInsensitive) == 0)
            return &v;
    return nullptr;
}

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
    Value* v = find(keys_[it->second], name);
    if (!v)
        return NotFound;
    type = v->type;
    length = std::uint32_t(v->data.size());
    if (data)
        *data = v->data;
    return Success;
}

long FakeStore::RegSetValueExA(Handle key, const QString& name, std::uint32_t type,
                               const QByteArray& data)
{
    const auto it = open_.find(key);
    if (it == open_.end())
        return NotFound;
    writes << name;
    set(keys_[it->second], name, type, data);
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
    for (const Value& v : it->second)
        if (v.name.compare(name, Qt::CaseInsensitive) == 0)
            return QString::fromUtf8(v.data);
    return std::nullopt;
}

void FakeStore::setValue(const QString& name, const QString& text)
{
    setRaw(name, String, text.toUtf8());
}

void FakeStore::setRaw(const QString& name, std::uint32_t type, const QByteArray& data)
{
    set(keys_[programKey], name, type, data);
}

void FakeStore::set(Key& key, const QString& name, std::uint32_t type, const QByteArray& data)
{
    if (Value* v = find(key, name))
        *v = {v->name, type, data};
    else
        key.push_back({name, type, data});
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
