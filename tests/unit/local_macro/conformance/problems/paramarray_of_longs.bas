' A ParamArray holds Variants.
'? 3:32 ParamArray must be declared as an array of Variant
Sub many(ParamArray a() As Long)
End Sub
Sub main()
End Sub
