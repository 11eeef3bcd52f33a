# Assets of every kind that there may be, in the columns of an asset file; one in twenty breaks a
# limit. awk -v seed=NUMBER -v count=NUMBER -f assets.awk
function between(least, most) { return least + int(rand() * (most - least + 1)) }
function one_of(list,    parts, count) { count = split(list, parts, "|"); return parts[between(1, count)] }

function money(most,    decimals, text) {
  text = between(0, most) ""
  decimals = one_of("0|2|2|2|2|2|3|4|6")
  if (decimals > 0) text = text "." sprintf("%0*d", decimals, between(0, 10 ^ decimals - 1))
  return text
}

function wrong() { return rand() < 0.01 }

BEGIN {
  srand(seed)
  print "id,placed_in_service,fiscal_year_end,life,convention,basis,salvage,capacity"
  split("31 28 31 30 31 30 31 31 30 31 30 31", days, " ")
  for (n = 1; n <= count; ++n) {
    month = between(1, 12)
    year = rand() < 0.1 ? one_of("100|101|9900|9947|9948|9949|9997") : between(1900, 2100)
    ending = between(1, 12)
    end = rand() < 0.05 ? "02-29" : sprintf("%02d-%02d", ending, rand() < 0.7 ? days[ending] : between(1, 28))
    life = wrong() ? one_of("0|0.99|50.01|51|-3|1e300") : rand() < 0.1 ? one_of("1|1.5|2.5|3.5|49.5|50") : between(1, 50)
    basis = wrong() ? one_of("0|-1|10000000|9999999.995|0.000") : rand() < 0.1 ? one_of("0.01|9999999.99|9999999.9900|0.005|1") : money(between(1, 7) == 1 ? 9999998 : 200000)
    salvage = wrong() ? one_of("-0.01|10000000|9999999") : rand() < 0.3 ? "0" : rand() < 0.1 ? basis : int(basis * rand()) ""
    capacity = wrong() ? "-1" : rand() < 0.5 ? "0" : one_of(between(1, 500000) "|0.4|0.5|1.5|2.5|1e18")
    printf "R%05d,%04d-%02d-%02d,%s,%s,%s,%s,%s,%s\n", n, year, month, between(1, 28), end, life,
      between(0, 4), basis, salvage, capacity
  }
}
