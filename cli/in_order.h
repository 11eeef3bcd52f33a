// What several threads make of the blocks of one text, passed on in the blocks' order.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace depcalc {

/// A thread takes a spare part, fills it with what its block gives and hands it in: whoever hands
/// in the part that is due passes it on, and those behind it that are there already, while the
/// others go on with their next blocks. Parts are handed over and used again, never copied; there
/// are so many and no more, so that the fastest thread waits when the slowest is far behind.
template <typename Part>
class InOrder {
 public:
  /// Answers whether to go on. One thread at a time is in it.
  using Pass = std::function<bool(Part&)>;

  InOrder(std::size_t parts, Pass pass) : pass_(std::move(pass)), unmade_(parts), waiting_(parts) {}

  /// To be taken before a block is, so that the thread whose block is due always has its part. Null
  /// when nobody is to go on.
  std::unique_ptr<Part> spare() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return stopped_ || unmade_ > 0 || !spares_.empty(); });
    if (stopped_) return nullptr;
    if (spares_.empty()) {
      --unmade_;
      return std::make_unique<Part>();
    }
    auto part = std::move(spares_.back());
    spares_.pop_back();
    return part;
  }

  /// Passes on what `part` holds already once its block, of that number from 0 on, is due. Returns
  /// whether to go on.
  bool passSoFar(std::size_t number, Part& part) {
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this, number] { return stopped_ || due_ == number; });
      if (stopped_) return false;
    }
    // It stays due, with nothing in its place, until it is handed in: nobody else passes on.
    if (pass_(part)) return true;
    stop();
    return false;
  }

  /// Returns whether to go on. A part leaves its place before it is passed on without the lock, and
  /// the next one is due only once the lock is held again: whoever hands in meanwhile finds nothing
  /// in the place that is due, and so only one thread passes on.
  bool handIn(std::size_t number, std::unique_ptr<Part> part) {
    std::unique_lock lock(mutex_);
    place(number) = std::move(part);
    while (!stopped_ && place(due_) != nullptr) {
      auto next = std::move(place(due_));
      lock.unlock();
      const bool wanted = pass_(*next);
      lock.lock();
      stopped_ = stopped_ || !wanted;
      spares_.push_back(std::move(next));
      ++due_;
      changed_.notify_all();
    }
    return !stopped_;
  }

  void stop() {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
  }

 private:
  /// Blocks that are taken and not yet passed on follow one another and have a part each, so no two
  /// of them meet here.
  std::unique_ptr<Part>& place(std::size_t number) { return waiting_[number % waiting_.size()]; }

  Pass pass_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t unmade_;
  std::vector<std::unique_ptr<Part>> spares_;
  std::vector<std::unique_ptr<Part>> waiting_;  // by their blocks' numbers
  std::size_t due_ = 0;
  bool stopped_ = false;
};

}  // namespace depcalc
