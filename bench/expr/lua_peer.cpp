#include <lua.hpp>

#include "bench/expr/peer.h"

namespace tessera::bench {
namespace {

class LuaPeer : public Peer {
 public:
  LuaPeer() : state_(luaL_newstate()) { luaL_openlibs(state_); }
  ~LuaPeer() override { lua_close(state_); }
  LuaPeer(const LuaPeer&) = delete;
  LuaPeer& operator=(const LuaPeer&) = delete;

  const char* name() const override { return "Lua"; }

  // The fastest way that Lua has: a function whose parameters are the columns, called from its place on the
  // stack.
  bool prepare(const std::string& text) override {
    lua_settop(state_, 0);
    const std::string code = "return function(AMOUNT, PRICE, REGION) return " + text + " end";
    return luaL_dostring(state_, code.c_str()) == LUA_OK;
  }

  double evaluate(const BenchRow& row) override {
    lua_pushvalue(state_, 1);
    lua_pushnumber(state_, row.amount);
    lua_pushnumber(state_, row.price);
    lua_pushstring(state_, row.region);
    lua_call(state_, 3, 1);
    const double result = asNumber();
    lua_settop(state_, 1);
    return result;
  }

 private:
  double asNumber() {
    if (lua_type(state_, -1) == LUA_TSTRING) {
      std::size_t length = 0;
      lua_tolstring(state_, -1, &length);
      return static_cast<double>(length);
    }
    return lua_isboolean(state_, -1) ? lua_toboolean(state_, -1) : lua_tonumber(state_, -1);
  }

  lua_State* state_;
};

}  // namespace

std::unique_ptr<Peer> makeLuaPeer() { return std::make_unique<LuaPeer>(); }

}  // namespace tessera::bench
