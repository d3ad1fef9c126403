// Another engine on the same rows.

#pragma once

#include <memory>
#include <string>

namespace tessera::bench {

// One row of the rows that all engines compute on.
struct BenchRow {
  double amount = 0;
  double price = 0;
  const char* region = "";
};

class Peer {
 public:
  virtual ~Peer() = default;
  virtual const char* name() const = 0;
  // Makes the engine ready for an expression in its own language; false when it has no such thing.
  virtual bool prepare(const std::string& text) = 0;
  // The value for a row: a number, the length of a text, 1 or 0.
  virtual double evaluate(const BenchRow& row) = 0;
};

std::unique_ptr<Peer> makeLuaPeer();
std::unique_ptr<Peer> makeMuParserPeer();

}  // namespace tessera::bench
