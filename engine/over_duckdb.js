// The recipe of docs/engines.md for DuckDB, held to the plain run: every figure in every bit, every text to the letter.
const { DuckDBInstance } = require('@duckdb/node-api');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');

/// The lines of a table as cells; none has a line end in a cell.
function* cellsOf(path) {
  const lines = fs.readFileSync(path, 'utf8').split('\n');
  lines.pop();
  for (const line of lines) {
    const cells = [];
    for (const found of line.matchAll(/(?:^|,)(?:"((?:[^"]|"")*)"|([^,]*))/g))
      cells.push(found[1] !== undefined ? found[1].replaceAll('""', '"') : found[2]);
    yield cells;
  }
}

/// The blocks of that kind in the recipe.
function blocks(kind) {
  const page = fs.readFileSync(`${process.env.METRISK_SOURCE}/docs/engines.md`, 'utf8');
  const recipe = page.slice(page.indexOf('`duckdb`'), page.indexOf('`pandas`'));
  return recipe.split('```' + kind + '\n').slice(1).map((text) => text.split('```')[0]);
}

async function main() {
  const connection = await (await DuckDBInstance.create(':memory:')).connect();
  const given = process.env.POINTS;
  await connection.run(`COPY (SELECT * FROM read_csv('${given}', header = true)) TO 'points.parquet' (FORMAT PARQUET)`);
  const [out, back] = blocks('sql');
  await connection.run(out);
  execFileSync('bash', ['-euo', 'pipefail', '-c', blocks('sh')[0]], { stdio: 'inherit' });
  await connection.run(back);

  const reader = await connection.runAndReadAll("SELECT * FROM 'risks.parquet' ORDER BY id");
  const names = reader.columnNames(), types = reader.columnTypes().map(String), rows = reader.getRowsJS();
  if (types[names.indexOf('FalseAccept')] !== 'DOUBLE') throw new Error('the risks are no numbers: ' + types.join(' '));
  const [header, ...plain] = cellsOf(process.env.PLAIN);
  if (header.join() !== names.join()) throw new Error('other columns: ' + names.join());
  if (plain.length !== rows.length) throw new Error(`${rows.length} rows, wanted ${plain.length}`);
  let numbers = 0;
  plain.forEach((cells, row) => {
    cells.forEach((cell, column) => {
      const value = rows[row][column];
      const isNumber = typeof value === 'number' || typeof value === 'bigint';
      numbers += isNumber;
      const same = isNumber ? Object.is(Number(cell), Number(value)) : cell === (value === null ? '' : String(value));
      if (!same) throw new Error(`row ${row}, ${header[column]}: ${value}, wanted ${cell}`);
    });
  });
  console.log(`  ${numbers} numbers of ${rows.length} rows are those of the plain run in every bit, and all texts`);
}
main().catch((fault) => {
  console.error(`  ${fault.message}`);
  process.exit(1);
});
