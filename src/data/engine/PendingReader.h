#pragma once

namespace tarnwell::data {

/// Rows whose statement has not come to its end. The engine knows nothing else of who reads them.
class PendingReader {
public:
    virtual ~PendingReader() = default;
    /// Fetches the rest if fetching has begun. Raises nothing: a failure shows when somebody walks there.
    virtual void completeRead() = 0;
    /// Lets go of the cursor: the engine closes.
    virtual void abandon() = 0;
};

} // namespace tarnwell::data
