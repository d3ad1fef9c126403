#include <muParser.h>

#include "bench/expr/peer.h"

namespace tessera::bench {
namespace {

// Knows numbers only.
class MuParserPeer : public Peer {
 public:
  MuParserPeer() {
    parser_.DefineVar("AMOUNT", &row_.amount);
    parser_.DefineVar("PRICE", &row_.price);
  }

  const char* name() const override { return "muParser"; }

  bool prepare(const std::string& text) override {
    if (text.empty()) return false;
    parser_.SetExpr(text);
    parser_.Eval();
    return true;
  }

  double evaluate(const BenchRow& row) override {
    row_ = row;
    return parser_.Eval();
  }

 private:
  BenchRow row_;
  mu::Parser parser_;
};

}  // namespace

std::unique_ptr<Peer> makeMuParserPeer() { return std::make_unique<MuParserPeer>(); }

}  // namespace tessera::bench
