// The ports that a host hands to a control: the one door for new ones.

#pragma once

namespace tessera {

class Clock;
class CodePages;
class DocumentReader;
class HttpClient;
class Locale;
class PictureLoader;

// All are borrowed and outlive the control. All but the first may be null; without one
// of `pictures` and `http` no picture is ever fetched.
struct Ports {
  DocumentReader& documents;
  PictureLoader* pictures = nullptr;
  HttpClient* http = nullptr;
  CodePages* codePages = nullptr;
  const Locale* locale = nullptr;  // null: English words
  const Clock* clock = nullptr;    // null: universal time
};

}  // namespace tessera
