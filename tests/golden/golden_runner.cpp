// Runs a golden file: text for the reader, and between it commands with what they must print.
//
//     What is shown here, in a sentence.
//       $ depcalc schedule assets.csv | head -n 1     a shell command, indented by two blanks
//       > more lines of the command                   such as a here-document
//       output                                        what comes on standard output
//       ! message                                     what comes on standard error
//       [1]                                           the exit status, where it is not 0
//
// The commands run one after the other in a new directory of their own. Usage:
// golden_runner [--update] FILE... With --update the files are rewritten with what came out.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view indent = "  ";
constexpr std::string_view no_newline = "\\ no newline at the end";

struct Step {
  std::string prose;    ///< what stands before the command
  std::string command;  ///< its lines as they stand, "$" and ">" included
  std::string expected;
};

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

bool begins(const std::string& line, std::string_view with) {
  return line.starts_with(indent) && std::string_view(line).substr(indent.size()).starts_with(with);
}

std::vector<Step> stepsOf(const std::string& text) {
  std::vector<Step> steps(1);
  for (const std::string& line : linesOf(text)) {
    if (begins(line, "$ ")) {
      if (!steps.back().command.empty()) steps.emplace_back();
      steps.back().command = line + '\n';
    } else if (begins(line, "> ") || line == "  >") {
      steps.back().command += line + '\n';
    } else if (line.starts_with(indent)) {
      steps.back().expected += line + '\n';
    } else {
      if (!steps.back().command.empty()) steps.emplace_back();
      steps.back().prose += line + '\n';
    }
  }
  return steps;
}

/// What the shell is given of a command's lines.
std::string shellText(const std::string& command) {
  std::string text;
  for (const std::string& line : linesOf(command)) {
    text += line.size() > 4 ? line.substr(4) : "";
    text += '\n';
  }
  return text;
}

/// `output` as the golden file shows it.
std::string shown(const std::string& output, const std::string& mark) {
  std::string text;
  for (const std::string& line : linesOf(output)) text.append(indent) += mark + line + '\n';
  if (!output.empty() && output.back() != '\n') text.append(indent).append(no_newline) += '\n';
  return text;
}

std::string run(const std::string& command, const fs::path& directory) {
  const fs::path script = directory.parent_path() / "command";
  const fs::path out = directory.parent_path() / "out";
  const fs::path errors = directory.parent_path() / "errors";
  std::ofstream(script, std::ios::binary) << shellText(command);
  const std::string shell = "cd '" + directory.string() + "' && sh '" + script.string() + "' >'" +
                            out.string() + "' 2>'" + errors.string() + "' </dev/null";
  const int status = std::system(shell.c_str());
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  std::string result = shown(contentOf(out), "") + shown(contentOf(errors), "! ");
  if (code != 0) result += std::string(indent) + "[" + std::to_string(code) + "]\n";
  return result;
}

fs::path newDirectory() {
  std::string name = (fs::temp_directory_path() / ("golden-" + std::string(6, 'X'))).string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
  return name;
}

/// Whether there were commands and all came out as expected.
bool runFile(const fs::path& file, bool update) {
  const fs::path place = newDirectory();
  const fs::path directory = place / "work";
  fs::create_directory(directory);
  std::string rewritten;
  int failures = 0;
  int commands = 0;
  for (const Step& step : stepsOf(contentOf(file))) {
    rewritten += step.prose + step.command;
    if (step.command.empty()) continue;
    ++commands;
    const std::string actual = run(step.command, directory);
    rewritten += actual;
    if (actual == step.expected || update) continue;
    ++failures;
    std::cout << file.string() << ":\n"
              << step.command << "expected:\n"
              << step.expected << "came:\n"
              << actual << '\n';
  }
  fs::remove_all(place);
  if (update) std::ofstream(file, std::ios::binary) << rewritten;
  std::cout << commands << " commands, " << failures << " differences\n";
  return commands > 0 && failures == 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> files(argv + 1, argv + argc);
  const bool update = !files.empty() && files.front() == "--update";
  if (update) files.erase(files.begin());
  if (files.empty()) {
    std::cerr << "usage: golden_runner [--update] FILE...\n";
    return 2;
  }
  int status = 0;
  try {
    for (const std::string& file : files) {
      if (!runFile(fs::absolute(file), update)) status = 1;
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  return status;
}
