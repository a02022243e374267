// A sliding-tile puzzle without a page: the board, its moves, a solver that looks a few moves
// ahead, and a text view. The script runs in any host that has a print function.

var SIZE = 4;
var EMPTY = 0;
var MAX_DEPTH = 12; /* moves */

var DIRECTIONS = {
  up:    { row: -1, column: 0, opposite: "down" },
  down:  { row: 1, column: 0, opposite: "up" },
  left:  { row: 0, column: -1, opposite: "right" },
  right: { row: 0, column: 1, opposite: "left" }
};

// A board is an array of SIZE * SIZE numbers, row by row.
function createBoard() {
  var cells = [];
  for (var i = 1; i < SIZE * SIZE; i++) {
    cells.push(i);
  }
  cells.push(EMPTY);
  return { cells: cells, hole: SIZE * SIZE - 1, moves: 0 };
}

function copyBoard(board) {
  return { cells: board.cells.slice(0), hole: board.hole, moves: board.moves };
}

function rowOf(index) {
  return Math.floor(index / SIZE);
}

function columnOf(index) {
  return index % SIZE;
}

function target(board, name) {
  var step = DIRECTIONS[name];
  var row = rowOf(board.hole) + step.row;
  var column = columnOf(board.hole) + step.column;
  if (row < 0 || row >= SIZE || column < 0 || column >= SIZE) {
    return -1;
  }
  return row * SIZE + column;
}

function move(board, name) {
  var index = target(board, name);
  if (index === -1) {
    return false;
  }
  board.cells[board.hole] = board.cells[index];
  board.cells[index] = EMPTY;
  board.hole = index;
  board.moves += 1;
  return true;
}

// A small generator of numbers that look random, so that a game can be
// played again from its seed.
function Generator(seed) {
  this.state = seed || 1;
}

Generator.prototype.next = function (limit) {
  this.state = (this.state * 16807) % 2147483647;
  return this.state % limit;
};

function namesOfMoves(board, lastMove) {
  var result = [];
  for (var name in DIRECTIONS) {
    var undoes = lastMove !== null && DIRECTIONS[lastMove].opposite === name;
    if (!undoes && target(board, name) !== -1) {
      result.push(name);
    }
  }
  return result;
}

function shuffle(board, seed, count) {
  var generator = new Generator(seed);
  var lastMove = null;
  while (count-- > 0) {
    var names = namesOfMoves(board, lastMove);
    lastMove = names[generator.next(names.length)];
    move(board, lastMove);
  }
  board.moves = 0;
}

function isSolved(board) {
  for (var i = 0; i < board.cells.length - 1; i++) {
    if (board.cells[i] !== i + 1) {
      return false;
    }
  }
  return true;
}

// The sum of the ways that all tiles still have to go; each move changes it by one.
function distance(board) {
  var sum = 0;
  board.cells.forEach(function (tile, index) {
    if (tile !== EMPTY) {
      sum += Math.abs(rowOf(index) - rowOf(tile - 1));
      sum += Math.abs(columnOf(index) - columnOf(tile - 1));
    }
  });
  return sum;
}

// Searches all move sequences whose length plus remaining distance is at most "limit". Returns
// the sequence, or null and, in "state.next", the smallest length that was cut off.
function searchWithin(board, path, limit, state) {
  var estimate = path.length + distance(board);
  if (estimate > limit) {
    state.next = Math.min(state.next, estimate);
    return null;
  }
  if (isSolved(board)) {
    return path.slice(0);
  }
  if (path.length >= MAX_DEPTH) {
    return null;
  }
  var last = path.length > 0 /* not the start */ ? path[path.length - 1] : null;
  var names = namesOfMoves(board, last);
  for (var i = 0; i < names.length; i++) {
    var next = copyBoard(board);
    move(next, names[i]);
    path.push(names[i]);
    var found = searchWithin(next, path, limit, state);
    path.pop();
    if (found) {
      return found;
    }
  }
  return null;
}

function solve(board) {
  var limit = distance(board);
  do {
    var state = { next: Infinity };
    var result = searchWithin(board, [], limit, state);
    if (result) {
      return result;
    }
    limit = state.next;
  } while (limit <= MAX_DEPTH);
  return null;
}

function pad(text, width) {
  text = String(text);
  while (text.length < width) {
    text = " " + text;
  }
  return text;
}

function show(board) {
  var lines = [];
  for (var row = 0; row < SIZE; row++) {
    var cells = board.cells.slice(row * SIZE, (row + 1) * SIZE);
    lines.push(cells.map(function (tile) {
      return tile === EMPTY ? "  ." : pad(tile, 3);
    }).join(""));
  }
  return lines.join("\n");
}

function score(board, seconds) {
  var base = 1000.5 - board.moves * 2.25;
  var bonus = seconds < 60 ? 250 : 0; // a quick game earns a little more
  return Math.max(0, Math.round(base + bonus));
}

function History() {
  this.items = [];
  this.position = 0;
}

History.prototype.add = function (name) {
  this.items.length = this.position;
  this.items.push(name);
  this.position++;
};

History.prototype.undo = function (board) {
  if (this.position === 0) {
    return false;
  }
  this.position--;
  return move(board, DIRECTIONS[this.items[this.position]].opposite);
};

function play(seed) {
  var board = createBoard();
  var history = new History();
  shuffle(board, seed, 8);
  print(show(board));

  var way = solve(board);
  if (way === null) {
    print("No way of at most " + MAX_DEPTH + " moves.");
    return;
  }
  way.forEach(function (name) {
    move(board, name);
    history.add(name);
    print(name + ":");
    print(show(board));
  });
  switch (way.length) {
    case 0:
      print("Nothing to do.");
      break;
    case 1:
      print("One move.");
      break;
    default:
      print(way.length + " moves, score " + score(board, way.length * 3));
  }
}

function checkCodes(flags) {
  var mask = 0x1F & flags;
  return mask >>> 2 | (mask & 3) << 3 ^ ~flags;
}

try {
  play(20240);
} catch (problem) {
  print('The game stopped: ' + problem.message);
} finally {
  print("Bye.");
}
