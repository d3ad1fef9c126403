#include "tools/tessera/program.h"

#include <CLI/CLI.hpp>

#include "tools/tessera/console.h"
#include "tools/tessera/render.h"

namespace tessera {

namespace {

constexpr int badInput = 2;

struct Options {
  std::string form;
  ConsoleOptions console;
  RenderOptions render;
};

void describeRender(CLI::App& command, Options& options) {
  command.add_option("form", options.form, "form, .csv file, .sqlite file or .sqlite:TABLE")->required();
  command.add_option("out", options.render.path, "picture to write")->required();
  const auto side = CLI::Range(1, HeadlessWindow::maxSide);
  command.add_option("--width", options.render.width, "pixels, in place of the form's")->check(side);
  command.add_option("--height", options.render.height, "pixels, in place of the form's")->check(side);
}

void describeConsole(CLI::App& command, Options& options) {
  command.add_option("form", options.form, "form, .csv file, .sqlite file or .sqlite:TABLE")->required();
  command.add_flag("--strict", options.console.strict, "the first error ends the session with exit code 1");
  command.add_flag("--echo", options.console.echo, "print each command before its replies");
}

int fail(std::ostream& err, const std::string& message) {
  err << "tessera: " << message << '\n';
  return badInput;
}

int runRender(OpenedForm opened, const Options& options, ProgramStreams streams) {
  const auto error = renderForm(std::move(opened), options.render, streams.err);
  return error ? fail(streams.err, error->message()) : 0;
}

int runConsole(OpenedForm opened, const Options& options, ProgramStreams streams) {
  return Console(std::move(opened), streams.out, options.console).run(streams.in);
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, ProgramStreams streams) {
  CLI::App app("Tessera, a data grid", "tessera");
  app.set_version_flag("--version", "tessera " TESSERA_VERSION);
  app.require_subcommand(1);
  Options options;
  CLI::App& render = *app.add_subcommand("render", "Paint a form into a picture");
  describeRender(render, options);
  CLI::App& console = *app.add_subcommand("console", "Obey one command a line from the standard input");
  describeConsole(console, options);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& success) {
    return app.exit(success, streams.out, streams.err);
  } catch (const CLI::ParseError& error) {
    return fail(streams.err, error.what());
  }
  auto opened = openForm(options.form);
  if (!opened) return fail(streams.err, opened.error().message());
  return render.parsed() ? runRender(std::move(*opened), options, streams)
                         : runConsole(std::move(*opened), options, streams);
}

}  // namespace tessera
