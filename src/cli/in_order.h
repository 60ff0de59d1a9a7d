// Work on many items spread over the machine's cores, its results taken in the items' order.
#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace cli {

// The threads for `count` items: one for each core, eight at most, and fewer where the items are
// too few to repay starting them (`items_per_thread` at the least for each).
inline unsigned Threads_For(std::size_t count, std::size_t items_per_thread = 16) {
  const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
  return static_cast<unsigned>(std::clamp<std::size_t>(count / items_per_thread, 1, std::min(cores, 8u)));
}

// Runs `(*worker)(i)` for every i below `count` on `threads` threads, each with a worker of its
// own from `make_worker()` (a std::unique_ptr, made when the thread has an item for it), and hands each result to `done(i, result)` on the calling thread, in the
// order of i, as soon as it and every one before it are there. A failure thrown for item i is
// thrown again here once items 0 .. i-1 are done, and nothing after it is handed on.
template <class Make_Worker, class Done>
void In_Order(std::size_t count, unsigned threads, Make_Worker make_worker, Done done) {
  using Worker = decltype(make_worker());
  using Result = decltype((*std::declval<Worker&>())(std::size_t{}));
  if (threads <= 1) {
    if (count == 0) return;
    Worker worker = make_worker();
    for (std::size_t i = 0; i < count; ++i) done(i, (*worker)(i));
    return;
  }
  struct Slot {
    std::optional<Result> result;
    std::exception_ptr failure;
  };
  std::vector<Slot> slots(count);
  std::mutex lock;
  std::condition_variable ready;
  std::atomic<std::size_t> next{0};
  std::atomic<bool> stop{false};
  const auto run = [&] {
    Worker worker;
    for (std::size_t i; !stop && (i = next++) < count;) {
      Slot slot;
      try {
        if (!worker) worker = make_worker();
        slot.result.emplace((*worker)(i));
      } catch (...) {
        slot.failure = std::current_exception();
      }
      const std::lock_guard<std::mutex> hold(lock);
      slots[i] = std::move(slot);
      ready.notify_all();
    }
  };
  std::vector<std::thread> pool;
  pool.reserve(threads);
  const auto finish = [&] {
    stop = true;
    for (std::thread& thread : pool) thread.join();
  };
  for (unsigned t = 0; t < threads; ++t) pool.emplace_back(run);
  try {
    for (std::size_t i = 0; i < count; ++i) {
      Slot slot;
      {
        std::unique_lock<std::mutex> hold(lock);
        ready.wait(hold, [&] { return slots[i].result || slots[i].failure; });
        slot = std::move(slots[i]);
      }
      if (slot.failure) std::rethrow_exception(slot.failure);
      done(i, std::move(*slot.result));
    }
  } catch (...) {
    finish();
    throw;
  }
  finish();
}

}  // namespace cli
