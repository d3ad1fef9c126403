// The ports that a host hands to a control.

#pragma once

namespace tessera {

class DocumentReader;
class HttpClient;
class PictureLoader;

// All are borrowed and outlive the control. The last two may be null: then no picture is ever fetched.
struct Ports {
  DocumentReader& documents;
  PictureLoader* pictures = nullptr;
  HttpClient* http = nullptr;
};

}  // namespace tessera
