#include "tools/tessera/program.h"

#include <CLI/CLI.hpp>

#include "backends/native/native_clock.h"
#include "backends/native/native_locale.h"
#include "expr/literal_text.h"
#include "shared/utf.h"
#include "tools/tessera/console.h"
#include "tools/tessera/evaluate.h"
#include "tools/tessera/render.h"

namespace tessera {

namespace {

constexpr int badInput = 2;

struct Options {
  std::string form;
  ViewOptions view;
  ConsoleOptions console;
  RenderOptions render;
  std::string expression;
  std::int32_t row = 1;
};

void describeView(CLI::App& command, Options& options) {
  command.add_option("form", options.view.file, "form, .csv file, .sqlite file or .sqlite:TABLE");
  command.add_option("--state", options.view.statePath,
                     "file that tells at any time what the window shows, for programs that drive it");
}

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

void describeEval(CLI::App& command, Options& options) {
  command.add_option("expression", options.expression, "expression to evaluate")->required();
  command.add_option("--form", options.form, "form, .csv file, .sqlite file or .sqlite:TABLE with the rows");
  command.add_option("--row", options.row, "row that the expression sees, from 1");
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

// In the language and at the time of the machine.
int runEval(const DataLink& link, const Options& options, ProgramStreams streams) {
  const NativeLocale locale;
  const NativeClock clock;
  const Evaluation evaluation =
      evaluateExpression(link, &locale, &clock, options.row, utf16FromUtf8(options.expression));
  for (const std::string& line : evaluation.errorLines()) streams.err << line << '\n';
  if (!evaluation.errors.empty()) return badInput;
  streams.out << literalText(evaluation.value) << '\n';
  return 0;
}

int runEval(OpenedForm opened, const Options& options, ProgramStreams streams) {
  FormHost host(std::move(opened));
  return runEval(host.control().parts().link, options, streams);
}

int runView(const ViewCommand& view, const Options& options, ProgramStreams streams) {
  if (view) return view(options.view, streams);
  return fail(streams.err, "this build has no desktop: it was configured with TESSERA_QT=OFF");
}

}  // namespace

int runProgram(const std::vector<std::string>& arguments, ProgramStreams streams, const ViewCommand& view) {
  CLI::App app("Tessera, a data grid", "tessera");
  app.set_version_flag("--version", "tessera " TESSERA_VERSION);
  app.require_subcommand(1);
  Options options;
  CLI::App& window = *app.add_subcommand("view", "Show and edit a form in a window");
  describeView(window, options);
  CLI::App& render = *app.add_subcommand("render", "Paint a form into a picture");
  describeRender(render, options);
  CLI::App& console = *app.add_subcommand("console", "Obey one command a line from the standard input");
  describeConsole(console, options);
  CLI::App& eval = *app.add_subcommand("eval", "Try an expression, on the rows of a form or without any");
  describeEval(eval, options);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& success) {
    return app.exit(success, streams.out, streams.err);
  } catch (const CLI::ParseError& error) {
    return fail(streams.err, error.what());
  }
  if (window.parsed()) return runView(view, options, streams);
  if (eval.parsed() && options.form.empty()) return runEval(DataLink(), options, streams);
  auto opened = openForm(options.form);
  if (!opened) return fail(streams.err, opened.error().message());
  if (eval.parsed()) return runEval(std::move(*opened), options, streams);
  return render.parsed() ? runRender(std::move(*opened), options, streams)
                         : runConsole(std::move(*opened), options, streams);
}

}  // namespace tessera
