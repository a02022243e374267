/* The tables, views and routines of a lending library.
   Run the whole script on an empty database; it may be run again. */

USE library

IF EXISTS (SELECT name FROM sysobjects WHERE name = 'open_loans')
  DROP VIEW open_loans

IF EXISTS (SELECT name FROM sysobjects WHERE name = 'loan')
BEGIN
  DROP TABLE loan
  DROP TABLE copy
  DROP TABLE title
  DROP TABLE reader
END

-- People who may borrow. A card number is printed on the card and never used twice.
CREATE TABLE reader (
  reader_id     int IDENTITY (1, 1) NOT NULL,
  card_number   varchar (12) NOT NULL,
  family_name   varchar (60) NOT NULL,
  given_name    varchar (60) NULL,
  street        varchar (80) NULL,
  town          varchar (60) DEFAULT 'unknown',
  member_since  datetime DEFAULT CURRENT_TIMESTAMP,
  fee_paid      decimal (8, 2) DEFAULT 0.00,
  CONSTRAINT pk_reader PRIMARY KEY CLUSTERED (reader_id),
  CONSTRAINT uq_card UNIQUE (card_number),
  CONSTRAINT ck_fee CHECK (fee_paid >= 0)
)

CREATE TABLE title (
  title_id      int NOT NULL PRIMARY KEY,
  name          varchar (200) NOT NULL,
  author        varchar (120) NULL,
  subject       char (4) NOT NULL,
  published     int CHECK (published BETWEEN 1450 AND 2100),
  pages         int NULL
)

CREATE TABLE copy (
  copy_id       int NOT NULL PRIMARY KEY,
  title_id      int NOT NULL REFERENCES title (title_id),
  shelf         varchar (10) NOT NULL,
  price         decimal (8, 2) NULL,
  state         char (1) DEFAULT 'a'
)

CREATE TABLE loan (
  loan_id       int IDENTITY (1, 1) NOT NULL,
  copy_id       int NOT NULL,
  reader_id     int NOT NULL,
  lent_on       datetime NOT NULL,
  due_on        datetime NOT NULL,
  returned_on   datetime NULL,
  FOREIGN KEY (copy_id) REFERENCES copy (copy_id),
  FOREIGN KEY (reader_id) REFERENCES reader (reader_id) ON DELETE CASCADE
)

CREATE NONCLUSTERED INDEX ix_loan_reader ON loan (reader_id, returned_on)
CREATE UNIQUE INDEX ix_loan_copy ON loan (copy_id, lent_on) WITH FILLFACTOR = 80
GO

/* What is out at the moment, with the days that are left.
   Negative days are overdue. */
CREATE VIEW open_loans AS
SELECT l.loan_id, r.card_number, r.family_name, t.name, t.author,
       DATEDIFF (day, CURRENT_TIMESTAMP, l.due_on) AS days_left
FROM loan l
  INNER JOIN reader r ON r.reader_id = l.reader_id
  INNER JOIN copy c ON c.copy_id = l.copy_id
  LEFT OUTER JOIN title t ON t.title_id = c.title_id
WHERE l.returned_on IS NULL
GO

CREATE PROCEDURE lend_copy @copy int, @card varchar (12), @days int = 28 AS
BEGIN
  DECLARE @reader int
  DECLARE @open int

  SELECT @reader = reader_id FROM reader WHERE card_number = @card
  IF @reader IS NULL
  BEGIN
    RAISERROR ('There is no reader with this card.', 16, 1)
    RETURN 1
  END

  -- Six open loans are the limit, whatever they are.
  SELECT @open = COUNT (*) FROM loan
  WHERE reader_id = @reader AND returned_on IS NULL
  IF @open >= 6
  BEGIN
    RAISERROR ('This reader has too many loans.', 16, 1)
    RETURN 2
  END

  BEGIN TRANSACTION
  UPDATE copy SET state = 'l' WHERE copy_id = @copy AND state = 'a'
  IF @@rowcount = 0
  BEGIN
    ROLLBACK TRANSACTION
    RETURN 3
  END
  INSERT INTO loan (copy_id, reader_id, lent_on, due_on)
  VALUES (@copy, @reader, CURRENT_TIMESTAMP, DATEADD (day, @days, CURRENT_TIMESTAMP))
  COMMIT TRANSACTION
  RETURN 0
END
GO

CREATE PROCEDURE return_copy @copy int AS
BEGIN
  UPDATE loan SET returned_on = CURRENT_TIMESTAMP
  WHERE copy_id = @copy AND returned_on IS NULL
  UPDATE copy SET state = 'a' WHERE copy_id = @copy
END
GO

CREATE TRIGGER check_state ON copy FOR UPDATE AS
IF EXISTS (SELECT * FROM inserted WHERE NOT state IN ('a', 'l', 'r', 'x'))
BEGIN
  PRINT 'A state is one of a, l, r and x.'
  ROLLBACK TRAN
END
GO

-- Some first rows
INSERT INTO reader (card_number, family_name, given_name, town) VALUES ('R-0001', 'Reader', 'One', 'Northfield')
INSERT INTO reader (card_number, family_name, given_name, town) VALUES ('R-0002', 'Reader', 'Two', 'Southfield')
INSERT INTO reader (card_number, family_name, given_name, town) VALUES ('R-0003', 'O''Reader', 'Three', NULL)

INSERT INTO title (title_id, name, author, subject, published, pages) VALUES (10, 'A Book of Bridges', NULL, 'TECH', 1987, 312)
INSERT INTO title (title_id, name, author, subject, published, pages) VALUES (11, 'Weather in Verse', NULL, 'POEM', 1931, 96)
INSERT INTO title (title_id, name, author, subject, published, pages) VALUES (12, 'The Long Canal', NULL, 'HIST', 2003, 540)

INSERT INTO copy (copy_id, title_id, shelf, price) VALUES (100, 10, 'T-04', 24.50)
INSERT INTO copy (copy_id, title_id, shelf, price) VALUES (101, 10, 'T-04', 24.50)
INSERT INTO copy (copy_id, title_id, shelf, price) VALUES (102, 11, 'P-01', 9.95)
INSERT INTO copy (copy_id, title_id, shelf, price) VALUES (103, 12, 'H-11', 38.00)

EXECUTE lend_copy 100, 'R-0001'
EXECUTE lend_copy 103, 'R-0002', 14

/* Reports */

-- Titles that nobody has borrowed for two years
SELECT t.title_id, t.name, MAX (l.lent_on) AS last_loan
FROM title t
  JOIN copy c ON c.title_id = t.title_id
  LEFT JOIN loan l ON l.copy_id = c.copy_id
GROUP BY t.title_id, t.name
HAVING MAX (l.lent_on) IS NULL OR MAX (l.lent_on) < DATEADD (year, -2, CURRENT_TIMESTAMP)
ORDER BY t.name ASC

-- Loans for each subject, the most wanted first
SELECT TOP 10 t.subject, COUNT (*) AS loans, AVG (t.pages) AS pages
FROM title t, copy c, loan l
WHERE c.title_id = t.title_id AND l.copy_id = c.copy_id
GROUP BY t.subject
ORDER BY loans DESC

-- What a reader owes: ten cents a day, and never more than the copy
SELECT r.family_name,
       SUM (CASE WHEN l.days_left < 0 THEN l.days_left * -0.10 ELSE 0 END) AS fine
FROM open_loans l JOIN reader r ON r.card_number = l.card_number
WHERE r.town LIKE '%field' AND NOT r.fee_paid IS NULL
GROUP BY r.family_name
UNION ALL
SELECT 'total', SUM (fee_paid) FROM reader

GRANT SELECT ON open_loans TO PUBLIC
DENY DELETE ON loan TO PUBLIC
