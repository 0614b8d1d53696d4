' A ParamArray is the last parameter and an array of Variants.
'? 3:27 ParamArray must be the last parameter
Sub many(ParamArray a(), b)
End Sub
Sub main()
End Sub
