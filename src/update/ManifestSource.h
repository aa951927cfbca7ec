#pragma once

#include <QByteArray>

#include <functional>
#include <optional>

namespace hmatnik {

/// Where the bytes of the version manifest come from.
class ManifestSource
{
public:
    /// Receives the whole body of an answer with status 200; none if there was no such answer, for
    /// whatever reason.
    using Handler = std::function<void(const std::optional<QByteArray> &)>;

    /// The largest body that is taken, in bytes. A manifest has a few hundred; whoever sends more
    /// than this is broken or hostile, and its texts would only stall the screens.
    static constexpr qsizetype maximumSize = qsizetype(256) * 1024;

    virtual ~ManifestSource() = default;

    /// Fetches the manifest and calls the handler once, later, on the calling thread. Destroying
    /// the source ends the transfer without a call. Not to be called again before the answer.
    virtual void fetch(Handler handler) = 0;
};

} // namespace hmatnik
