/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LAYOUT_BUILDER_H
#define LAYOUT_BUILDER_H


#include <GroupLayout.h>
#include <SpaceLayoutItem.h>
#include <Window.h>


/*!	Writes layouts down in the shape that they will have: AddGroup() opens a group inside of the
	current one, End() goes back out. A builder owns nothing and does everything at once.
*/
namespace BLayoutBuilder {


template<typename ParentBuilder>
class Base {
public:
	ParentBuilder& End() { return *fParent; }

protected:
	Base()
		: fParent(NULL)
	{
	}

	void SetParent(ParentBuilder* parent) { fParent = parent; }

	ParentBuilder* fParent;
};


template<typename ParentBuilder = void*>
class Group : public Base<ParentBuilder> {
public:
	typedef Group<ParentBuilder> ThisBuilder;
	typedef Group<ThisBuilder> GroupBuilder;

	Group(BWindow* window, orientation orientation, float spacing = B_USE_DEFAULT_SPACING)
		: fLayout(new BGroupLayout(orientation, spacing))
	{
		window->SetLayout(fLayout);
	}

	Group(BView* view, orientation orientation, float spacing = B_USE_DEFAULT_SPACING) = delete;

	Group(BGroupLayout* layout)
		: fLayout(layout)
	{
	}

	ThisBuilder& Add(BView* view)
	{
		fLayout->AddView(view, 1);
		return *this;
	}

	ThisBuilder& Add(BView* view, float weight)
	{
		fLayout->AddView(view, weight);
		return *this;
	}

	ThisBuilder& Add(BLayoutItem* item) = delete;
	ThisBuilder& Add(BLayoutItem* item, float weight) = delete;

	GroupBuilder AddGroup(orientation orientation, float spacing = B_USE_DEFAULT_SPACING,
		float weight = 1.0f)
	{
		BGroupLayout* layout = new BGroupLayout(orientation, spacing);
		fLayout->AddItem(layout, weight);
		GroupBuilder builder(layout);
		builder.SetParent(this);
		return builder;
	}

	ThisBuilder& AddGlue(float weight = 1.0f)
	{
		fLayout->AddItem(BSpaceLayoutItem::CreateGlue(), weight);
		return *this;
	}

	ThisBuilder& SetInsets(float left, float top, float right, float bottom)
	{
		fLayout->SetInsets(left, top, right, bottom);
		return *this;
	}

	ThisBuilder& SetInsets(float horizontal, float vertical) = delete;

	ThisBuilder& SetInsets(float insets)
	{
		fLayout->SetInsets(insets);
		return *this;
	}

private:
	template<typename Other>
	friend class Group;

	BGroupLayout* fLayout;
};


} // namespace BLayoutBuilder


#endif // LAYOUT_BUILDER_H
