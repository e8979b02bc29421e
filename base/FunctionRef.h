// A reference to anything callable, without allocation: for functions handed to a search or an integral.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace metrisk {

template <class Signature>
class FunctionRef;

/// Must not outlive the callable it was made from.
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
  public:
    template <class F>
    requires(!std::is_same_v<std::remove_cvref_t<F>, FunctionRef> &&
             std::is_invocable_r_v<Result, F&, Arguments...> &&
             !std::is_function_v<std::remove_reference_t<F>>) FunctionRef(F&& f)
        : object_(const_cast<void*>(static_cast<const void*>(std::addressof(f)))),
          call_([](void* object, Arguments... arguments) -> Result {
              return (*static_cast<std::remove_reference_t<F>*>(object))(
                  std::forward<Arguments>(arguments)...);
          }) {}

    Result operator()(Arguments... arguments) const {
        return call_(object_, std::forward<Arguments>(arguments)...);
    }

  private:
    void* object_;
    Result (*call_)(void*, Arguments...);
};

} // namespace metrisk
