#include "unattended/Json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace metrisk {

namespace {

constexpr std::size_t deepest = 64;

/// Builds a value from what the library reads, without its own tree: that forgets that a key stood twice.
class Builder final : public nlohmann::json_sax<nlohmann::json> {
  public:
    bool null() override { return add({}); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(static_cast<double>(value)); }
    bool number_unsigned(number_unsigned_t value) override { return add(static_cast<double>(value)); }
    bool number_float(number_float_t value, const string_t&) override { return add(value); }
    bool string(string_t& value) override { return add(value); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return open(Json(std::initializer_list<Json::Member>{})); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(Json::array()); }
    bool end_array() override { return close(); }
    bool key(string_t& name) override {
        const auto& members = std::get<Json::Object>(open_.back().json.value());
        if (std::ranges::find(members, name, &Json::Member::key) != members.end()) {
            fault = "key " + name + " stands twice";
            return false;
        }
        open_.back().key = name;
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override {
        fault = "is no JSON at byte " + std::to_string(position);
        return false;
    }

    Json root;
    std::string fault;

  private:
    struct Open {
        Json json;
        std::string key; // of the value that comes
    };

    bool add(Json value) {
        if (open_.empty()) {
            root = std::move(value);
        } else if (std::holds_alternative<Json::Array>(open_.back().json.value())) {
            open_.back().json.push_back(std::move(value));
        } else {
            open_.back().json[open_.back().key] = std::move(value);
        }
        return true;
    }
    bool open(Json empty) {
        if (open_.size() >= deepest) {
            fault = "is nested too deep";
            return false;
        }
        open_.push_back({std::move(empty), {}});
        return true;
    }
    bool close() {
        Json done = std::move(open_.back().json);
        open_.pop_back();
        return add(std::move(done));
    }

    std::vector<Open> open_;
};

} // namespace

Json readJson(std::string_view text) {
    Builder builder;
    if (!nlohmann::json::sax_parse(text.begin(), text.end(), &builder))
        throw std::runtime_error(builder.fault.empty() ? "is no JSON" : builder.fault);
    return builder.root;
}

} // namespace metrisk
