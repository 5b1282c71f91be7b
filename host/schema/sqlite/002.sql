-- Grows with every change of the value. Who changed it last is unknown for what was stored before.
ALTER TABLE settings ADD COLUMN revision INTEGER NOT NULL DEFAULT 1;

ALTER TABLE settings ADD COLUMN changed_at TEXT;

ALTER TABLE settings ADD COLUMN changed_by TEXT;

ALTER TABLE settings ADD COLUMN workstation TEXT;

ALTER TABLE settings ADD COLUMN program TEXT;

-- One row a changed setting and save. Both values are NULL for a secret, the old one also where there was no setting.
CREATE TABLE history(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    save_id TEXT NOT NULL,
    key TEXT NOT NULL,
    revision INTEGER NOT NULL,
    old_value TEXT,
    new_value TEXT,
    changed_at TEXT NOT NULL,
    changed_by TEXT NOT NULL,
    workstation TEXT NOT NULL,
    program TEXT NOT NULL,
    reason TEXT,
    UNIQUE(key, revision));

CREATE INDEX history_save ON history(save_id);

CREATE TRIGGER history_is_not_changed BEFORE UPDATE ON history
BEGIN
    SELECT RAISE(ABORT, 'history cannot be changed');
END;

CREATE TRIGGER history_is_not_deleted BEFORE DELETE ON history
BEGIN
    SELECT RAISE(ABORT, 'history cannot be deleted');
END;

-- A setting that comes back after it was removed does not use its old revisions again.
CREATE TRIGGER settings_come_back AFTER INSERT ON settings
WHEN new.revision <= (SELECT max(revision) FROM history WHERE key = new.key)
BEGIN
    UPDATE settings SET revision = (SELECT max(revision) FROM history WHERE key = new.key) + 1 WHERE key = new.key;
END;

-- A writer that knows nothing of revisions, such as a program of version 1 that was running already, is noticed too.
CREATE TRIGGER settings_always_get_a_revision AFTER UPDATE OF value ON settings
WHEN new.revision = old.revision
BEGIN
    UPDATE settings
    SET revision = old.revision + 1, changed_at = strftime('%Y-%m-%dT%H:%M:%fZ', 'now'),
        changed_by = NULL, workstation = NULL, program = NULL
    WHERE key = new.key;
END;
