-- Grows with every change of the value. Who changed it last is unknown for what was stored before.
ALTER TABLE settings
    ADD COLUMN revision BIGINT NOT NULL DEFAULT 1,
    ADD COLUMN changed_at TEXT,
    ADD COLUMN changed_by TEXT,
    ADD COLUMN workstation TEXT,
    ADD COLUMN program TEXT;

-- One row a changed setting and save. Both values are NULL for a secret, the old one also where there was no setting.
CREATE TABLE history(
    id BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    save_id TEXT NOT NULL,
    key TEXT NOT NULL,
    revision BIGINT NOT NULL,
    old_value TEXT,
    new_value TEXT,
    changed_at TEXT NOT NULL,
    changed_by TEXT NOT NULL,
    workstation TEXT NOT NULL,
    program TEXT NOT NULL,
    reason TEXT,
    UNIQUE(key, revision));

CREATE INDEX history_save ON history(save_id);

CREATE FUNCTION vxsettings_keep_history() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    RAISE EXCEPTION 'history cannot be changed';
END $$;

CREATE TRIGGER history_is_not_changed BEFORE UPDATE OR DELETE OR TRUNCATE ON history
FOR EACH STATEMENT EXECUTE FUNCTION vxsettings_keep_history();

-- A setting that comes back after it was removed does not use its old revisions again.
CREATE FUNCTION vxsettings_come_back() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    new.revision := greatest(new.revision, (SELECT max(revision) + 1 FROM history WHERE key = new.key));
    RETURN new;
END $$;

CREATE TRIGGER settings_come_back BEFORE INSERT ON settings
FOR EACH ROW EXECUTE FUNCTION vxsettings_come_back();

-- A writer that knows nothing of revisions is noticed too.
CREATE FUNCTION vxsettings_count_revision() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    IF new.revision = old.revision THEN
        new.revision := old.revision + 1;
        new.changed_at := to_char(now() AT TIME ZONE 'UTC', 'YYYY-MM-DD"T"HH24:MI:SS.MS"Z"');
        new.changed_by := NULL;
        new.workstation := NULL;
        new.program := NULL;
    END IF;
    RETURN new;
END $$;

CREATE TRIGGER settings_always_get_a_revision BEFORE UPDATE OF value ON settings
FOR EACH ROW EXECUTE FUNCTION vxsettings_count_revision();
