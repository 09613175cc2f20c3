INSERT INTO "Code" ("CodeKey", "Code1", "Code2", "Description", "Deleted") VALUES
(20, 2, 0, 'Framing', 0),
(21, 2, 0, 'Grundstück', -1),
(22, 5, 2, 'Bay window', 0)
GO
INSERT INTO "MasterTask" ("MasterTaskKey", "CodeKey", "Name", "MasterPrice", "CustomTask", "ExcludeDependency", "Deleted") VALUES
(1, 20, 'Frame walls', 1576.5, 'N', 0, 0),
(2, 21, 'Dig', NULL, NULL, -1, -1)
GO
INSERT INTO "CategoryDependency" ("CategoryDependencyKey", "CategoryKey", "DependentKey") VALUES
(4, 20, 21)
GO
INSERT INTO "Contractor" ("ContractorKey", "Name", "Address 1", "Address 2", "City", "State", "Zipcode", "License") VALUES
(1, '', NULL, NULL, NULL, NULL, NULL, NULL),
(2, 'O''Neil & Sons', '1 Hill Road', '', 'Dover', 'DE', '19901', 'L-77')
GO
INSERT INTO "ContractorPlan" ("ContractorPlanKey", "ContractorKey", "PlanName") VALUES
(1, 2, 'Cedar')
GO
INSERT INTO "ContractorPlanTask" ("ContractorPlanTaskKey", "ContractorPlanKey", "MasterTaskKey", "CodeKey", "Name", "MasterPrice", "CustomTask", "ExcludeDependency") VALUES
(1, 1, 1, 20, 'Frame walls', 1600, 'N', -1)
GO
INSERT INTO "ContractorTaskOption" ("ContractorTaskOptionKey", "ContractorPlanTaskKey", "Name", "MasterPrice") VALUES
(1, 1, 'Bay Window', 120.25)
GO
INSERT INTO "ContractorOptionGroup" ("OptionGroupKey", "ContractorKey", "CodeKey", "MasterTaskKey", "MasterPrice", "ExcludeDependency") VALUES
(1, 2, 22, 1, 99, 0)
GO
INSERT INTO "Job" ("JobKey", "JobNumber", "Name", "Foreman", "ContractorKey", "CompletedDate") VALUES
(1, '2601', 'Hill Road', 'Ash/Bea', 2, NULL),
(7, '2602', NULL, NULL, 2, '2026-10-30 17:45:00')
GO
INSERT INTO "JobLot" ("JobLotKey", "JobKey", "LotBlock", "PlanName", "Address", "ContractorPlanKey", "ExcludeDependencyCheck") VALUES
(1, 1, '12', 'Cedar', 'Hill Road 12', 1, -1)
GO
INSERT INTO "JobLotTask" ("JobLotTaskKey", "JobLotKey", "MasterTaskKey", "CodeKey", "ContractorPlanTaskKey", "ContractorTaskOptionKey", "Name", "MasterPrice", "CustomTask", "ExcludeDependency", "ParentKey", "Child", "StartDate", "StopDate", "EmployeeKey") VALUES
(1, 1, 1, 20, 1, 0, 'Frame walls', 1600, 'N', 0, 1, 0, '2026-11-02 08:00:00', '2026-11-04 16:30:00', 2),
(2, 1, 1, 20, 1, 1, 'Frame walls Bay Window', 120.25, 'Y', -1, 1, 1, NULL, NULL, 0),
(3, 1, 0, 20, NULL, NULL, 'Sweep', 0, 'N', 0, 0, 0, NULL, NULL, 0)
GO
INSERT INTO "Employee" ("EmployeeKey", "SSN", "LastName", "FirstName", "Type", "Foreman", "MaritalStatus", "Address1", "Address2", "City", "State", "Zipcode", "Telephone", "Dependants", "Information", "DateofHire", "DateofTermination", "Inactive") VALUES
(1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0),
(2, '000-00-0042', 'Ash', 'Bea', 'Foreman', NULL, 'MS', '3 Mill Lane', NULL, 'Dover', 'DE', '19901', '(302) 555-0142', 2, 'speaks Česky', '1999-12-31 00:00:00', NULL, -1)
GO
INSERT INTO "JobTaskEmployee" ("JobTaskEmployee", "JobLotTaskKey", "EmployeeKey", "Price", "Completed", "Note") VALUES
(1, 1, 2, 800.1, '2026-11-03 00:00:00', ''),
(2, 1, 2, -0.05, '2026-11-04 00:00:00', 'two words'),
(9, 2, 1, 120.25, '2026-11-04 00:00:00', 'last')
GO
INSERT INTO "EmployeeLog" ("LogKey", "EmployeeKey", "JobLotTaskKey", "Occured", "Problem") VALUES
(1, 2, 1, '2026-11-04 00:00:00', 'Employee paid twice for same job/task')
GO
