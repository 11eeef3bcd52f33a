// server_company_bench FILE ADDRESS: opens the same company in a file and on a server, and saves an
// asset of each, beside a bare INSERT in the same session's manner.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <variant>

#include "host/places/company_places.h"
#include "host/postgresql/connection.h"

namespace depcalc {
namespace {

/// Milliseconds of the fastest of `runs`.
double fastest(int runs, const std::function<void()>& work) {
  double best = 1e9;
  for (int run = 0; run < runs; ++run) {
    const auto began = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - began;
    best = std::min(best, took.count());
  }
  return best;
}

std::shared_ptr<StoredCompanyFile> opened(const std::string& place) {
  const auto answer = openCompany(place, placesOn(Date::carrying(2024, 6, 1)));
  if (const auto* trouble = std::get_if<FileTrouble>(&answer)) throw FileTrouble(*trouble);
  return std::get<std::shared_ptr<StoredCompanyFile>>(answer);
}

double openingOf(const std::string& place) {
  return fastest(5, [&place] { opened(place)->close(); });
}

double savingOf(const std::string& place) {
  const auto file = opened(place);
  const auto table = file->OpenTable("ZEM:DepCalc");
  int number = 0;
  const double took = fastest(200, [&] {
    const auto record = table->Item(1);
    record->Fields().SetValue("AName", StoredValue::text("Name " + std::to_string(++number)));
    record->Modified(true);
    record->Commit();
  });
  file->close();
  return took;
}

double insertingInto(const std::string& address) {
  const Libpq libpq = loadedLibpq();
  Connection connection(libpq, ServerAddress::of(address), "bench");
  connection.run("CREATE TABLE public.bare (number bigint, fields text)");
  const std::string fields(900, 'x');
  return fastest(200, [&] {
    connection.run("BEGIN");
    connection.run("INSERT INTO public.bare VALUES ($1, $2)", Parameters().integer(1).text(fields));
    connection.run("COMMIT");
  });
}

void measure(const std::string& file, const std::string& address) {
  const double of_file = openingOf(file);
  const double of_server = openingOf(address);
  std::printf("  opening: %.0f ms from the server, %.0f ms from the file, ratio %.2f\n", of_server,
              of_file, of_server / of_file);
  const double save = savingOf(address);
  const double bare = insertingInto(address);
  std::printf(
      "  a save: %.2f ms; a bare INSERT and commit %.2f ms, ratio %.2f; in a file %.2f ms\n", save,
      bare, save / bare, savingOf(file));
}

}  // namespace
}  // namespace depcalc

int main(int count, char** arguments) {
  if (count != 3) return 2;
  try {
    depcalc::measure(arguments[1], arguments[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
