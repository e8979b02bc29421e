-- The functions of metrisk. An index over one of them holds the figures of the version that made it: metrisk_version().
\echo Use "CREATE EXTENSION metrisk" to load this file. \quit

-- FIGURE, NAME1, VALUE1, NAME2, VALUE2 and so on; a NULL value names nothing.
CREATE FUNCTION metrisk_risk(figure text, VARIADIC entries "any") RETURNS double precision
AS 'MODULE_PATHNAME', 'metrisk_pg_risk'
LANGUAGE C IMMUTABLE CALLED ON NULL INPUT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_risk_text(figure text, VARIADIC entries "any") RETURNS text
AS 'MODULE_PATHNAME', 'metrisk_pg_risk_text'
LANGUAGE C IMMUTABLE CALLED ON NULL INPUT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_message(figure text, VARIADIC entries "any") RETURNS text
AS 'MODULE_PATHNAME', 'metrisk_pg_message'
LANGUAGE C IMMUTABLE CALLED ON NULL INPUT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_risks(VARIADIC entries "any") RETURNS text
AS 'MODULE_PATHNAME', 'metrisk_pg_risks'
LANGUAGE C IMMUTABLE CALLED ON NULL INPUT PARALLEL SAFE COST 2000;

CREATE FUNCTION metrisk_fa(nominal double precision, tol double precision, su_pct double precision, mte_u double precision)
RETURNS double precision AS 'MODULE_PATHNAME', 'metrisk_pg_fa'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_fr(nominal double precision, tol double precision, su_pct double precision, mte_u double precision)
RETURNS double precision AS 'MODULE_PATHNAME', 'metrisk_pg_fr'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_tur(nominal double precision, tol double precision, su_pct double precision, mte_u double precision)
RETURNS double precision AS 'MODULE_PATHNAME', 'metrisk_pg_tur'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_guardband(nominal double precision, tol double precision, su_pct double precision,
                                  mte_u double precision, fa double precision)
RETURNS double precision AS 'MODULE_PATHNAME', 'metrisk_pg_guardband'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_conformance(reading double precision, lower double precision, upper double precision,
                                    u double precision)
RETURNS double precision AS 'MODULE_PATHNAME', 'metrisk_pg_conformance'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 2000;
CREATE FUNCTION metrisk_version() RETURNS text
AS 'MODULE_PATHNAME', 'metrisk_pg_version'
LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE;
