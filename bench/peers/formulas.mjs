// node formulas.mjs < assets.csv > amounts.csv: the schedules by formulajs's spreadsheet functions.
import { readFileSync, writeFileSync } from "node:fs";
import { DDB, SLN, SYD } from "@formulajs/formulajs";

const lines = [];
for (const row of readFileSync(0, "utf8").trim().split("\n")) {
  const [id, life, basis, salvage] = row.split(",").map(Number);
  for (let year = 1; year <= life; ++year) {
    lines.push(`${id},SL,${year},${SLN(basis, salvage, life)}`);
    lines.push(`${id},SYD,${year},${SYD(basis, salvage, life, year)}`);
    lines.push(`${id},DDB,${year},${DDB(basis, salvage, life, year, 2)}`);
  }
}
writeFileSync(1, lines.join("\n") + "\n");
