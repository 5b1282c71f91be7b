-- The number of the last of these files that was run: one row.
CREATE TABLE schema_version(
    version INTEGER NOT NULL);

INSERT INTO schema_version VALUES(0);

-- One setting a row.
CREATE TABLE settings(
    key TEXT PRIMARY KEY,
    value TEXT);

-- The objects of every data name, in their order.
CREATE TABLE objects(
    data_name TEXT NOT NULL,
    uid BIGINT NOT NULL,
    parent_uid BIGINT NOT NULL DEFAULT 0,
    type TEXT NOT NULL,
    name TEXT NOT NULL,
    granted BOOLEAN NOT NULL DEFAULT TRUE,
    position BIGINT GENERATED ALWAYS AS IDENTITY,
    PRIMARY KEY(data_name, uid));

-- Everybody who listens reads again, and finds out by that what is new.
CREATE FUNCTION vxsettings_tell() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    PERFORM pg_notify('vxsettings', '');
    RETURN NULL;
END $$;

CREATE TRIGGER settings_tell AFTER INSERT OR UPDATE OR DELETE OR TRUNCATE ON settings
FOR EACH STATEMENT EXECUTE FUNCTION vxsettings_tell();

CREATE TRIGGER objects_tell AFTER INSERT OR UPDATE OR DELETE OR TRUNCATE ON objects
FOR EACH STATEMENT EXECUTE FUNCTION vxsettings_tell();
