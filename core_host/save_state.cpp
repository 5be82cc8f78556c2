#include <algorithm>
#include <new>

#include <QDebug>

#include <velmora/libretro_host.h>

#include "core_host/last_error.h"
#include "core_host/size_limit.h"
#include "platform/core_call.h"
#include "platform/file.h"
#include "velmora_foundation/paths.h"

namespace velmora {

namespace {

constexpr auto unsupported = "This core does not support save states.";

bool writeState(const std::vector<std::uint8_t>& state, const std::filesystem::path& path,
                std::string& lastError) {
    const QString name = paths::fromFs(path);
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    platform::File file(path, QIODevice::WriteOnly);
    if (file.failure) {
        qWarning() << "Save state write failed" << name
                   << QString::fromStdString(file.failure.message());
        return fail(lastError, {"Could not write save state file."});
    }
    const auto size = static_cast<qint64>(state.size());
    const qint64 written = file.write(reinterpret_cast<const char*>(state.data()), size);
    file.flush();
    file.close();
    if (written != size)
        return fail(lastError, {"Could not write save state file."});
    qInfo() << "Saved state" << name << "bytes" << written;
    return true;
}

bool readState(const std::filesystem::path& path, const QString& name, QByteArray& state,
               std::string& lastError) {
    platform::File file(path, QIODevice::ReadOnly);
    if (file.failure) {
        qWarning() << "Save state missing" << name;
        return fail(lastError, {"Save state not found."});
    }
    if (static_cast<std::uint64_t>(file.size()) <= sizeLimit)
        state = file.read(file.size());
    return !state.isEmpty() || fail(lastError, {"Could not read save state file."});
}

} // namespace

bool LibretroHost::saveState(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex);
    if (!gameLoaded || !core.retro_serialize || !core.retro_serialize_size)
        return fail(lastError, {unsupported});
    return orFail(lastError, [&] {
        std::vector<std::uint8_t> state;
        return takeState(state) && writeState(state, path, lastError);
    });
}

bool LibretroHost::takeState(std::vector<std::uint8_t>& state) {
    const std::size_t size = platform::enterCore(core.retro_serialize_size);
    if (size == 0)
        return fail(lastError, {"Save state size is zero."});
    if (size > sizeLimit)
        throw std::bad_alloc();
    state.resize(size);
    return platform::coreAgrees(core.retro_serialize, state.data(), size) ||
           fail(lastError, {"Core refused to serialize state."});
}

bool LibretroHost::loadState(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex);
    if (!gameLoaded || !core.retro_unserialize)
        return fail(lastError, {unsupported});
    return orFail(lastError, [&] {
        const QString name = paths::fromFs(path);
        QByteArray state;
        if (!readState(path, name, state, lastError))
            return false;
        const auto fileSize = static_cast<std::size_t>(state.size());
        const std::size_t coreSize =
            core.retro_serialize_size ? platform::enterCore(core.retro_serialize_size) : fileSize;
        if (!offerState(state.constData(), fileSize, coreSize)) {
            qWarning() << "Save state rejected" << name << "file" << fileSize << "core" << coreSize;
            return fail(lastError, {"Core refused to load this save state."});
        }
        qInfo() << "Loaded state" << name << "bytes" << fileSize;
        return true;
    });
}

// A core that has grown or shrunk its state since the file was written may still take the old one
// in its own size of today.
bool LibretroHost::offerState(const char* state, std::size_t fileSize, std::size_t coreSize) {
    if (platform::coreAgrees(core.retro_unserialize, state, fileSize))
        return true;
    if (coreSize > fileSize && coreSize <= sizeLimit) {
        std::vector<char> padded(coreSize);
        std::copy_n(state, fileSize, padded.begin());
        return platform::coreAgrees(core.retro_unserialize, padded.data(), coreSize);
    }
    return coreSize != 0 && coreSize < fileSize &&
           platform::coreAgrees(core.retro_unserialize, state, coreSize);
}

} // namespace velmora
